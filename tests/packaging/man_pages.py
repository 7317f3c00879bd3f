#!/usr/bin/env python3
"""man_pages.py TOP REPLAY SIMULATE: the man pages are well written, and say what the programs say of themselves."""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

TOP, REPLAY, SIMULATE = (pathlib.Path(argument).resolve() for argument in sys.argv[1:4])
PAGES = sorted((TOP / "packaging/man").iterdir())
ENVIRONMENT = os.environ | {"LC_ALL": "C"}


def output(*command, **how):
    return subprocess.run(command, capture_output=True, text=True, check=False, env=ENVIRONMENT, **how)


def words(text):
    return " ".join(text.split())


def shown(name):
    """A page as a terminal shows it, without what makes letters bold."""
    return re.sub(".\b", "", output("mandoc", "-Tascii", "-Owidth=200", TOP / "packaging/man" / name).stdout)


def examples(name):
    """The blocks of a page that stand as they are."""
    source = (TOP / "packaging/man" / name).read_text(encoding="utf-8")
    blocks = re.findall(r"^\.Bd -literal.*?\n(.*?)^\.Ed$", source, re.MULTILINE | re.DOTALL)
    return [block.replace("\\e", "\\") for block in blocks]


def help_of(program):
    return output(program, "--help").stdout


def indented(text, heading):
    """The lines of a help text that stand indented below a heading."""
    lines = text[text.index(heading) + len(heading) :].splitlines()[1:]
    first = next(i for i, line in enumerate(lines) if line)
    last = next((i for i, line in enumerate(lines[first:], first) if not line.startswith("  ")), len(lines))
    return lines[first:last]


def keys():
    """The keys of halvern-simulate with their defaults."""
    lines = indented(help_of(SIMULATE), "the second is for interference.")
    return {line[2:19].strip(): line[19:36].strip() for line in lines}


def entries():
    """What the page of halvern-simulate says of each option."""
    source = (TOP / "packaging/man/halvern-simulate.1").read_text(encoding="utf-8")
    found = re.findall(r"^\.It Fl -([\w-]+)[^\n]*\n(.*?)(?=^\.It|^\.El)", source, re.MULTILINE | re.DOTALL)
    return {name: words(text) for name, text in found}


class ManPages(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.scratch = pathlib.Path(tempfile.mkdtemp(prefix="halvern-test-")).resolve()
        cls.addClassCleanup(shutil.rmtree, cls.scratch)

    def expect_statuses(self, page, program):
        told = indented(help_of(program), "Exit status:")
        self.assertGreaterEqual(len(told), 3)
        page_text = shown(page).lower()
        statuses = {line.split()[0]: words(line).split(" ", 1)[1] for line in told}
        for status, meaning in statuses.items():
            self.assertRegex(page_text, rf"(?m)^ +{status} +{re.escape(meaning.lower())}\.")
        listed = re.search(r"^EXIT STATUS\n(.*?)^\S", shown(page), re.MULTILINE | re.DOTALL)[1]
        self.assertEqual(re.findall(r"^ +(\d+) ", listed, re.MULTILINE), list(statuses))

    def test_they_are_well_written(self):
        pages = {page.name for page in PAGES}
        self.assertEqual(len(pages), 6)
        for line in output("mandoc", "-Tlint", "-Wall", *PAGES).stdout.splitlines():
            # It looks for pages that others name among those of the system: these lie here.
            named = re.search(r"STYLE: referenced manual not found: Xr (\S+) (\d)", line)
            self.assertTrue(named and f"{named[1]}.{named[2]}" in pages, line)

    def test_every_option_of_the_replay_has_its_place_and_no_other(self):
        flags = set(re.findall(r"--([\w-]+)", help_of(REPLAY)))
        source = (TOP / "packaging/man/halvern-replay.1").read_text(encoding="utf-8")
        self.assertEqual(set(re.findall(r"^\.It Fl -([\w-]+)", source, re.MULTILINE)), flags)
        self.assertEqual(flags, {"help", "version"})
        self.expect_statuses("halvern-replay.1", REPLAY)

    def test_every_event_has_its_place_and_no_other(self):
        events = [line.strip() for line in indented(help_of(REPLAY), "Events:")]
        self.assertGreater(len(events), 10)
        page = shown("halvern-session.5")
        part = page[page.index("   Events\n") : page.index("   What is printed\n")]
        described = [line.strip() for line in part.splitlines() if re.match(r"     \S", line)]
        self.assertEqual(sorted(described), sorted(events))

    def test_every_option_of_the_simulator_has_its_place_and_no_other(self):
        usage = set(re.findall(r"--([a-z]\w*)", help_of(SIMULATE)))
        self.assertEqual(set(entries()), set(keys()) | usage)
        self.assertEqual(usage, {"output", "help", "version"})
        self.expect_statuses("halvern-simulate.1", SIMULATE)

    def test_every_key_has_its_default(self):
        for key, default in keys().items():
            if default:
                self.assertRegex(entries()[key], rf"By default {re.escape(default)}(?![\d])", key)

    def test_every_number_has_its_bounds(self):
        numbers = 0
        for key in keys():
            too_much = output(SIMULATE, "--output", self.scratch / "none", f"--{key}", "1e300").stderr
            bounds = re.search(r"has to be (\S+) to (\S+)$", too_much.strip())
            if bounds:
                numbers += 1
                told = re.search(r"(?<![\w.])([\d.e-]+) to ([\d.e-]*\d)", entries()[key])
                self.assertEqual(list(map(float, told.groups())), list(map(float, bounds.groups())), key)
        self.assertGreater(numbers, 20)
        self.assertFalse((self.scratch / "none").exists())

    def test_every_part_of_a_species_and_of_a_speed_is_told(self):
        page = shown("halvern-simulate.1")
        for heading in ("A species consists of", "A speed consists of"):
            for line in indented(help_of(SIMULATE), heading):
                for name in re.findall(r"(\w+):[A-Z]", line):
                    self.assertRegex(page, rf"\b{name}:", name)

    def test_the_examples_of_the_simulator_are_true(self):
        parameters, session, complaints = examples("halvern-simulate.1")
        in_help = help_of(SIMULATE).split("A small parameter file:\n\n")[1].split("\n\n")[0]
        self.assertEqual(list(map(words, parameters.splitlines())), list(map(words, in_help.splitlines())))
        (self.scratch / "two.parameters").write_text(parameters, encoding="utf-8")
        commands = re.findall(r"^\$ halvern-simulate (.*)\n(.*)$", session, re.MULTILINE)
        self.assertEqual(len(commands), 2)
        for arguments, told in commands:
            ran = output(SIMULATE, *arguments.split(), cwd=self.scratch)
            self.assertEqual((ran.returncode, ran.stdout.strip(), ran.stderr), (0, told, ""))
        first, second = ((self.scratch / f"{name}/00001.RA1").read_bytes() for name in ("first", "second"))
        self.assertNotEqual(first, second)
        self.assertIn("noise   = 0.005", parameters)
        (self.scratch / "two.parameters").write_text(parameters.replace("= 0.005", "= 50"), encoding="utf-8")
        told = output(SIMULATE, "two.parameters", "--output", "none", cwd=self.scratch).stderr
        told += output(SIMULATE, "--species", "concentration:1 s:1", "--output", "none", cwd=self.scratch).stderr
        self.assertEqual(told, complaints)

    def test_the_examples_of_scans_and_sessions_are_true(self):
        made = output(TOP / "samples/make", SIMULATE, self.scratch / "scans", "two-species", "interference")
        self.assertEqual((made.returncode, made.stderr), (0, ""))
        scans = [self.scratch / "scans/two-species/00031.RA1", self.scratch / "scans/interference/00001.IP1"]
        for scan, example in zip(scans, examples("halvern-scan.5"), strict=True):
            lines = scan.read_bytes().decode("ascii").split("\r\n")
            self.assertEqual(lines[:4], example.splitlines())
        (example,) = examples("halvern-list.5")
        lines = (self.scratch / "scans/two-species/middle.LST").read_text(encoding="ascii").splitlines()
        self.assertEqual(lines[:4], example.splitlines())
        (script,) = examples("halvern-session.5")
        ran = output(REPLAY, "-", input=script, cwd=scans[0].parent)
        self.assertEqual((ran.returncode, ran.stderr), (0, ""))
        self.assertIn('dialog: DistAves "Distribution Averages"\n', ran.stdout)
        self.assertTrue((scans[0].parent / "gofs.txt").exists())

    def test_the_complaints_of_the_replay_are_true(self):
        blocks = examples("halvern-replay.1")
        for line in blocks[2].splitlines():
            number, reason = re.fullmatch(r"rack\.session:(\d+): (.*)", line).groups()
            event = "click GetListNow\nchoose none.LST\n" if "no such file" in reason else "click KeldIt\n"
            script = "\n" * (int(number) - event.count("\n")) + event
            (self.scratch / "rack.session").write_text(script, encoding="utf-8")
            ran = output(REPLAY, "rack.session", cwd=self.scratch)
            self.assertEqual((ran.returncode, ran.stderr), (1, line + "\n"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
