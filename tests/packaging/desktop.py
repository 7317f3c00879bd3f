#!/usr/bin/env python3
"""desktop.py TOP METAINFO: what tells the desktop of the program passes the desktop's own checks, and agrees."""

import configparser
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as xml

TOP, METAINFO = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
FOLDER = TOP / "packaging/desktop"
ID = "org.halvern.halvern"
ENVIRONMENT = os.environ | {"LC_ALL": "C"}


def run(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False, env=ENVIRONMENT)


class Desktop(unittest.TestCase):
    def test_the_entry_is_valid(self):
        checked = run("desktop-file-validate", FOLDER / f"{ID}.desktop")
        self.assertEqual((checked.returncode, checked.stdout + checked.stderr), (0, ""))

    def test_the_metainfo_is_valid(self):
        checked = run("appstreamcli", "validate", "--pedantic", "--no-net", METAINFO)
        self.assertEqual(checked.returncode, 0, checked.stdout)
        self.assertEqual(re.findall(r"^[EWIP]: .*", checked.stdout, re.MULTILINE), [])

    def test_all_of_it_has_one_name(self):
        metainfo = xml.parse(METAINFO)
        self.assertEqual(metainfo.findtext("id"), ID)
        self.assertEqual(metainfo.findtext("launchable"), f"{ID}.desktop")
        self.assertEqual(metainfo.findtext("icon"), ID)
        entry = configparser.ConfigParser(interpolation=None)
        entry.optionxform = str
        entry.read(FOLDER / f"{ID}.desktop", encoding="utf-8")
        self.assertEqual(entry["Desktop Entry"]["Icon"], ID)
        # The program takes no command line, so that no file can be handed to it.
        self.assertEqual(entry["Desktop Entry"]["Exec"], "halvern")
        self.assertNotIn("MimeType", entry["Desktop Entry"])
        told = (TOP / "src/desktop/run_halvern.cpp").read_text(encoding="utf-8")
        self.assertIn(f'setDesktopFileName(QStringLiteral("{ID}"))', told)

    def test_the_icon_is_a_square_without_anything_from_elsewhere(self):
        icon = xml.parse(FOLDER / f"{ID}.svg").getroot()
        self.assertEqual(icon.get("viewBox"), "0 0 128 128")
        for element in icon.iter():
            self.assertIn(element.tag.removeprefix("{http://www.w3.org/2000/svg}"), ("svg", "title", "rect", "path"))

    def test_files_get_their_types(self):
        scratch = pathlib.Path(tempfile.mkdtemp(prefix="halvern-test-"))
        self.addCleanup(shutil.rmtree, scratch)
        (scratch / "packages").mkdir()
        shutil.copy(FOLDER / "halvern.xml", scratch / "packages")
        made = run("update-mime-database", scratch)
        self.assertEqual(made.returncode, 0, made.stderr)
        globs = (scratch / "globs2").read_text(encoding="utf-8")
        self.assertIn("50:application/x-halvern-list:*.LST:cs\n", globs)
        self.assertIn("50:text/x-halvern-session:*.session\n", globs)
        parents = (scratch / "subclasses").read_text(encoding="utf-8").splitlines()
        children = ["application/x-halvern-list", "text/x-halvern-session"]
        self.assertEqual(sorted(parents), [f"{child} text/plain" for child in children])
        types = re.findall(r'mime-type type="(.*?)"', (FOLDER / "halvern.xml").read_text(encoding="utf-8"))
        told = [element.text for element in xml.parse(METAINFO).findall("provides/mediatype")]
        self.assertEqual(sorted(types), sorted(told))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
