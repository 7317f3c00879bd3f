#!/usr/bin/env python3
"""versions.py TOP BUILD METAINFO REPLAY SIMULATE: all that tells a version tells that of the version record."""

import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

TOP, BUILD, METAINFO, REPLAY, SIMULATE = (pathlib.Path(argument) for argument in sys.argv[1:6])
RECORD = (TOP / "src/shell/version.h").read_text(encoding="utf-8")
NUMBERS = [int(number) for number in re.findall(r"kVersion\w+ = (\d+);", RECORD)]
SHOWN = "{}.{}.{:04}".format(*NUMBERS)  # 0.99.0055, for people
COUNTED = "{}.{}.{}".format(*NUMBERS)  # 0.99.55, for the build and the package


class Versions(unittest.TestCase):
    def test_the_record_has_three_numbers(self):
        self.assertEqual(len(NUMBERS), 3)

    def test_the_programs_tell_it(self):
        for program, name in ((REPLAY, "halvern-replay"), (SIMULATE, "halvern-simulate")):
            told = subprocess.run([program, "--version"], capture_output=True, text=True, check=True).stdout
            self.assertEqual(told, f"{name} {SHOWN}\n")

    def test_the_newest_release_of_the_changelog_is_it(self):
        releases = re.findall(r"^## \[(.*)\] - (.*)$", (TOP / "CHANGELOG.md").read_text(encoding="utf-8"), re.MULTILINE)
        self.assertEqual(releases[0][0], SHOWN)
        for version, date in releases:
            self.assertRegex(version, r"^\d+\.\d+\.\d{4}$")
            self.assertRegex(date, r"^(unreleased|\d{4}-\d\d-\d\d)$")

    def test_the_metainfo_has_it(self):
        release = xml.etree.ElementTree.parse(METAINFO).find("releases/release")
        self.assertEqual(release.get("version"), SHOWN)

    def test_the_package_has_it(self):
        settings = (BUILD / "CPackConfig.cmake").read_text(encoding="utf-8")
        self.assertIn(f'set(CPACK_PACKAGE_VERSION "{COUNTED}")\n', settings)

    def test_the_changelog_of_the_package_has_every_release_and_item(self):
        with tempfile.TemporaryDirectory() as scratch:
            made = pathlib.Path(scratch) / "changelog"
            maker, somebody = TOP / "packaging/debian/make-changelog", "Somebody <somebody@example.org>"
            subprocess.run([maker, TOP / "CHANGELOG.md", somebody, "86400", made], check=True)
            text = made.read_text(encoding="utf-8")
        source = (TOP / "CHANGELOG.md").read_text(encoding="utf-8")
        self.assertEqual(text.splitlines()[0].split(";")[0].rsplit(" ", 1)[0], f"halvern ({COUNTED})")
        for made_line, source_line in (("halvern (", "## "), ("  * ", "- ")):
            counts = [("\n" + words).count("\n" + line) for words, line in ((text, made_line), (source, source_line))]
            self.assertEqual(*counts, source_line)
        self.assertRegex(text, rf"\n -- {somebody}  \w{{3}}, \d\d \w{{3}} \d{{4}} \d\d:\d\d:\d\d \+0000\n")
        if "- unreleased" in source:
            self.assertIn("Fri, 02 Jan 1970 00:00:00 +0000", text)
        for line in text.splitlines():
            self.assertLessEqual(len(line), 80, line)
            self.assertEqual(line, line.rstrip())

    def test_nothing_of_the_packaging_has_another_one(self):
        for path in sorted((TOP / "packaging").rglob("*")):
            if path.is_file():
                for version in re.findall(rf"\b{NUMBERS[0]}\.{NUMBERS[1]}\.\d+", path.read_text(encoding="utf-8")):
                    self.assertIn(version, (SHOWN, COUNTED), path)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
