"""The tests that a mutant has to pass: each in a process of its own, against the library that the worker has linked."""

import collections
import json
import os
import pathlib
import signal
import subprocess
import tempfile
import time

Test = collections.namedtuple("Test", "program name file command")
"""`file` is the source of the test, from the top folder."""

# From the ground up; a mutant meets the tests of its own room first.
PROGRAMS = ["store_test", "conditioning_test", "analysis_test", "wide_test", "output_test", "intake_test", "plot_test",
            "shell_test", "replay_test", "physics_test", "three_speeds_test", "refused_calls_test", "odd_files_test",
            "torture_test"]
TARGETS = [*PROGRAMS, "replay_make_data"]

SLOW, VERY_SLOW = 0.5, 5.0  # seconds
LEAST_SECONDS = 10.0  # what a test may take at least before it counts as endless
MOST_SECONDS = 600.0


class UnsoundTest(Exception):
    """A test that fails without a mutant."""


def environment(libraries, scratch):
    kept = {name: value for name, value in os.environ.items() if name not in ("DISPLAY", "WAYLAND_DISPLAY")}
    return {**kept, "LD_LIBRARY_PATH": os.pathsep.join(map(str, libraries)), "TMPDIR": str(scratch)}


def run(command, env, folder, seconds):
    """Whether a command ends well, and in time. What it has started ends with it."""
    process = subprocess.Popen(command, cwd=folder, env=env, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL, start_new_session=True)
    try:
        return process.wait(seconds) == 0
    except subprocess.TimeoutExpired:
        return False
    finally:
        try:
            os.killpg(process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass
        process.wait()


def tests_of(program, path, top):
    """The tests of a GoogleTest program with the files that they stand in."""
    with tempfile.TemporaryDirectory() as folder:
        listing = pathlib.Path(folder, "tests.json")
        subprocess.run([path, "--gtest_list_tests", f"--gtest_output=json:{listing}"], check=True,
                       stdout=subprocess.DEVNULL)
        suites = json.loads(listing.read_text(encoding="utf-8"))["testsuites"]
    for suite in suites:
        for test in suite["testsuite"]:
            name = f"{suite['name']}.{test['name']}"
            file = os.path.relpath(test["file"], top)
            yield Test(program, name, file, (str(path), f"--gtest_filter={name}"))


def all_tests(build, top):
    """All tests that mutants meet, from the ground up; `top` is the folder that the build was made of."""
    tests = []
    for program in PROGRAMS:
        path = next(path for path in sorted((build / "tests").rglob(program)) if path.is_file())
        tests += tests_of(program, path, top)
    play = [str(top / "tests/replay/run_script.sh"), str(build / "src/replay/halvern-replay"),
            str(build / "tests/replay/replay_make_data")]
    for script in sorted((top / "tests/replay/scripts").glob("*.script")):
        file = str(script.relative_to(top))
        tests.append(Test("replay_scripts", script.stem, file, ("bash", *play, str(script))))
    return tests


class Jury:
    """The tests, with the time that each takes; it is learnt as they run, and kept from one campaign to the next."""

    def __init__(self, build, top, scratch, own=False):
        self.own = own
        self.tests = all_tests(build, top)
        self.below = [build / "src", build / "src/replay"]
        self.untouched = environment(self.below, scratch)
        self.scratch = scratch
        self.times = build / "seconds.json"
        known = json.loads(self.times.read_text(encoding="utf-8")) if self.times.exists() else {}
        self.seconds = {test: known.get(f"{test.program}/{test.name}", 0.0) for test in self.tests}
        self.sound = set()  # tests that have passed without a mutant

    def keep_times(self):
        seconds = {f"{test.program}/{test.name}": seconds for test, seconds in self.seconds.items()}
        self.times.write_text(json.dumps(seconds, indent=1), encoding="utf-8")

    def order_for(self, file):
        """Two rows of tests: those of the file and of its room; then all others, those of the rooms below it last. Quick ones
        come before slow ones, and very slow ones behind all."""
        path = pathlib.PurePath(file)
        room = path.parts[1]
        own = f"tests/{room}/{path.stem}_test.cpp"
        ground = PROGRAMS.index(f"{room}_test")

        def rank(test):
            place = PROGRAMS.index(test.program) if test.program in PROGRAMS else len(PROGRAMS)
            seconds = self.seconds[test]
            return (seconds > VERY_SLOW, test.file != own, place < ground, seconds > SLOW, place)

        near = [test for test in self.tests if test.program == PROGRAMS[ground]]
        far = [] if self.own else [test for test in self.tests if test.program != PROGRAMS[ground]]
        return sorted(near, key=rank), sorted(far, key=rank)

    def passes(self, test, env, scratch, seconds):
        start = time.monotonic()
        well = run(test.command, env, scratch, seconds)
        if well:
            self.seconds[test] = time.monotonic() - start
        return well

    def is_sound(self, test):
        """Whether a test passes without a mutant; one that does not is no judge."""
        if test not in self.sound and self.passes(test, self.untouched, self.scratch, MOST_SECONDS):
            self.sound.add(test)
        return test in self.sound

    def first_killer(self, tests, libraries, scratch):
        """The first of the tests that fails, or None. Fails with the name of a test that fails without a mutant, too."""
        env = environment([*libraries, *self.below], scratch)
        for test in tests:
            if self.passes(test, env, scratch, LEAST_SECONDS + 10 * self.seconds[test]):
                continue
            if not self.is_sound(test):
                raise UnsoundTest(f"{test.program}/{test.name}")
            return test
        return None
