#!/usr/bin/env python3
"""surroundings.py TOP REPLAY SIMULATE LOCALES: the session scripts of the samples give the same bytes, printed and in
files, wherever and however REPLAY, the built halvern-replay, is started; and so do the scans of SIMULATE, the built
halvern-simulate. LOCALES is a folder of compiled locales.

Each place is held against the plain one: a folder with a plain name, the locale C, universal time.
"""

import datetime
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import zoneinfo

TOP, REPLAY, SIMULATE, LOCALES = (pathlib.Path(argument).resolve() for argument in sys.argv[1:5])
PICTURES = "click SaveBMP\nchoose plot.bmp\nrender plot.png\nrender plot.svg\n"
STAMP = re.compile(rb"!(\d\d:\d\d:\d\d ON \d+-[A-Z][a-z]{2}-\d{4})")
PLAIN = {"PATH": os.environ["PATH"], "LC_ALL": "C", "TZ": "UTC"}
LANGUAGES = ("de_DE.UTF-8", "tr_TR.UTF-8", "fa_IR.UTF-8", "C.UTF-8", "xx_XX.UTF-8")  # the last one is nowhere
ZONES = ("Pacific/Kiritimati", "Asia/Kathmandu", "America/St_Johns", "Nowhere/AtAll", "")
FOLDERS = ("with blanks ", "Möbel für Größen", "it's \"quoted\" & <b>%1</b>", "-dash", "a\tb", "a\x1b[31m", "\u202egpj.x")
SANITIZERS = {name: os.environ[name] for name in ("ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS") if name in os.environ}


def contents(folder):
    return {path.name: path.read_bytes() for path in sorted(folder.iterdir()) if path.is_file()}


class Outcome:
    """What a session printed, its status and the files of its folder, with the folder's own path taken out."""

    def __init__(self, folder, ran):
        self.status = ran.returncode
        written = contents(folder)
        self.stamps = [stamp for text in written.values() for stamp in STAMP.findall(text)]
        path = os.fsencode(folder)
        escaped = path.replace(b"\\", b"\\\\").replace(b'"', b'\\"').replace(b"\t", b"\\t")
        parts = {"stdout": ran.stdout or b"", "stderr": ran.stderr or b"", **written}
        self.parts = {
            name: STAMP.sub(b"!TIME", text.replace(escaped, b"@DIR@").replace(path, b"@DIR@"))
            for name, text in parts.items()
        }


class Surroundings(unittest.TestCase):
    maxDiff = 2000

    @classmethod
    def setUpClass(cls):
        cls.scratch = pathlib.Path(tempfile.mkdtemp(prefix="halvern-test-")).resolve()
        cls.addClassCleanup(shutil.rmtree, cls.scratch)
        samples = cls.scratch / "samples"
        subprocess.run([TOP / "samples/make", SIMULATE, samples], env=PLAIN | SANITIZERS, check=True, capture_output=True)
        tour = (TOP / "tests/replay/tour.session").read_text(encoding="utf-8")
        cls.sessions = {}
        for sample, more in (("two-species", tour + PICTURES), ("three-speeds", "")):
            script = (TOP / f"samples/{sample}.session").read_text(encoding="utf-8") + more
            (samples / sample / "all.session").write_text(script, encoding="utf-8")
            cls.sessions[sample] = samples / sample
        cls.plain = {sample: cls.play(cls, sample, "plain") for sample in cls.sessions}

    def play(self, sample, folder, variables=PLAIN, script="all.session", **how):
        """Runs the session of a sample in a copy of its folder. A variable that is None is not set."""
        where = self.scratch / folder / sample
        shutil.rmtree(where, ignore_errors=True)
        shutil.copytree(self.sessions[sample], where)
        environment = {name: value for name, value in (variables | SANITIZERS).items() if value is not None}
        how = {"stdin": subprocess.DEVNULL, "stdout": subprocess.PIPE, "stderr": subprocess.PIPE} | how
        return Outcome(where, subprocess.run([REPLAY, script], cwd=where, env=environment, check=False, **how))

    def expect_plain(self, sample, got, but=()):
        plain = self.plain[sample]
        self.assertEqual(got.status, plain.status)
        self.assertEqual(sorted(got.parts), sorted(plain.parts))
        for name, text in plain.parts.items():
            if name not in but:
                self.assertTrue(got.parts[name] == text, f"{name} differs: {got.parts[name][:300]!r}")

    def everywhere(self, names, **how):
        for name, variables in names.items():
            for sample in self.sessions:
                with self.subTest(name, sample=sample):
                    self.expect_plain(sample, self.play(sample, "place", PLAIN | variables, **how))

    def test_the_plain_sessions_say_and_write_something(self):
        for sample, plain in self.plain.items():
            self.assertEqual((plain.status, plain.parts["stderr"]), (0, b""), sample)
            self.assertGreater(len(plain.parts["stdout"]), 500)
        written = self.plain["two-species"].parts
        for name in ("dcdt.txt", "gofs.txt", "raw.txt", "plot.dat", "plot.bmp", "plot.png", "plot.svg"):
            self.assertGreater(len(written[name]), 5000, name)
        for name in ("g.txt", "g-over-ln.txt", "integral.txt", "g-unsmoothed.txt"):
            self.assertGreater(len(self.plain["three-speeds"].parts[name]), 500, name)

    def test_the_language_of_the_user_changes_nothing(self):
        self.everywhere({name: {"LC_ALL": name, "LOCPATH": str(LOCALES)} for name in LANGUAGES})
        self.everywhere({"German numbers": {"LC_ALL": None, "LC_NUMERIC": "de_DE.UTF-8", "LOCPATH": str(LOCALES)}})
        self.everywhere({"no locale": {"LC_ALL": None}})

    def test_the_time_zone_changes_the_stamp_of_a_plot_file_alone(self):
        for zone in ZONES:
            with self.subTest(zone):
                got = self.play("two-species", "place", PLAIN | {"TZ": zone})
                self.expect_plain("two-species", got)
                try:
                    clock = zoneinfo.ZoneInfo(zone)
                except (ValueError, zoneinfo.ZoneInfoNotFoundError):
                    clock = datetime.timezone.utc
                now = datetime.datetime.now(clock).replace(tzinfo=None)
                self.assertEqual(len(got.stamps), 1)
                stamp = datetime.datetime.strptime(got.stamps[0].decode(), "%H:%M:%S ON %d-%b-%Y")
                self.assertLess(abs(now - stamp), datetime.timedelta(minutes=5))

    def test_no_home_and_no_folder_for_temporary_files_are_needed(self):
        # Nobody, root included, can make a file in /proc.
        shut = self.scratch / "shut"
        shut.mkdir(mode=0)
        homes = {f"HOME={home}": {"HOME": home} for home in ("", "/proc", "/dev/null", "/proc/none/such", str(shut))}
        self.everywhere(homes)
        self.everywhere({"TMPDIR": {"TMPDIR": "/proc/none", "XDG_RUNTIME_DIR": "/proc/none", "XDG_CACHE_HOME": "/proc"}})
        self.assertEqual(list(shut.iterdir()), [])

    def test_no_display_is_looked_for(self):
        self.everywhere({"display": {"DISPLAY": ":4711", "WAYLAND_DISPLAY": "none", "QT_QPA_PLATFORM": "xcb"}})

    def test_the_name_of_the_folder_is_no_matter(self):
        for folder in FOLDERS:
            for sample in self.sessions:
                with self.subTest(folder, sample=sample):
                    self.expect_plain(sample, self.play(sample, folder))

    def test_a_folder_whose_name_is_no_text_is_no_matter(self):
        for folder in (b"caf\xe9", b"\xff\xfe"):
            self.expect_plain("three-speeds", self.play("three-speeds", os.fsdecode(folder)))

    def test_what_is_not_read_and_not_said_may_be_closed(self):
        for streams in ((0,), (2,), (0, 2)):
            with self.subTest(streams):
                close = lambda: [os.close(stream) for stream in streams]  # noqa: E731
                got = self.play("two-species", "place", preexec_fn=close)
                self.expect_plain("two-species", got)

    def test_a_standard_output_that_takes_nothing_ends_the_replay_and_spoils_no_file(self):
        told = re.compile(rb"all\.session:\d+: the output can't be written\n")
        with open("/dev/full", "wb") as full:
            outputs = {"full": {"stdout": full}, "closed": {"stdout": None, "preexec_fn": lambda: os.close(1)}}
            for name, how in outputs.items():
                with self.subTest(name):
                    got = self.play("two-species", "place", **how)
                    self.assertEqual(got.status, 1)
                    self.assertRegex(got.parts["stderr"], told)
                    for file, text in self.plain["two-species"].parts.items():
                        if file not in ("stdout", "stderr") and file in got.parts:
                            self.assertEqual(got.parts[file], text, file)

    def test_a_folder_that_is_gone_is_an_error_of_the_script_and_no_more(self):
        gone = self.scratch / "gone"
        gone.mkdir()
        script = b"click GetListNow\nchoose middle.LST\n"
        command = 'rmdir "$PWD"; exec "$0" -'
        ran = subprocess.run(
            ["bash", "-c", command, REPLAY], cwd=gone, env=PLAIN | SANITIZERS, input=script, capture_output=True, check=False
        )
        self.assertEqual((ran.returncode, ran.stdout), (1, b""))
        self.assertEqual(ran.stderr, b"-:2: the current directory is gone\n")
        # An absolute path leads out of it.
        where = self.scratch / "place" / "three-speeds"
        shutil.rmtree(where, ignore_errors=True)
        shutil.copytree(self.sessions["three-speeds"], where)
        gone.mkdir()
        name = os.fsencode(where / "three-speeds.LST").replace(b"\\", b"\\\\").replace(b'"', b'\\"')
        script = (where / "all.session").read_bytes().replace(b"choose three-speeds.LST", b'choose "' + name + b'"')
        ran = subprocess.run(
            ["bash", "-c", command, REPLAY], cwd=gone, env=PLAIN | SANITIZERS, input=script, capture_output=True, check=False
        )
        self.expect_plain("three-speeds", Outcome(where, ran))

    def test_simulated_scans_are_the_same_bytes(self):
        parameters = (TOP / "samples/two-species.parameters").read_text(encoding="utf-8")
        folder = self.scratch / "Größe 'mit' \"Blank\""
        folder.mkdir()
        (folder / "p q.parameters").write_text(parameters, encoding="utf-8")
        wanted = contents(self.sessions["two-species"])
        for language in LANGUAGES[:3]:
            with self.subTest(language):
                into = folder / language
                ran = subprocess.run(
                    [SIMULATE, "p q.parameters", "--output", into],
                    cwd=folder,
                    env={"LC_ALL": language, "LOCPATH": str(LOCALES), "TZ": "Asia/Kathmandu"} | SANITIZERS,
                    stdin=subprocess.DEVNULL,
                    capture_output=True,
                    check=False,
                )
                self.assertEqual((ran.returncode, ran.stderr), (0, b""))
                made = contents(into)
                self.assertEqual(len([name for name in made if name.endswith(".RA1")]), 60)
                for name, text in made.items():
                    self.assertEqual(text, wanted[name.replace("p q", "two-species")], name)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
