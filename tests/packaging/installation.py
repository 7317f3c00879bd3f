#!/usr/bin/env python3
"""installation.py CMAKE BUILD: what `cmake --install` puts down works from any place, also after it has been moved."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

CMAKE, BUILD = sys.argv[1:3]

PROGRAMS = [
    "bin/halvern",
    "bin/halvern-replay",
    "bin/halvern-simulate",
    "share/halvern/samples/check",
    "share/halvern/samples/make",
]
OTHERS = [
    "LIB/halvern/halvern-render.so",
    "share/applications/org.halvern.halvern.desktop",
    "share/doc/halvern/README.md",
    "share/halvern/samples/README.md",
    "share/halvern/samples/interference.parameters",
    "share/halvern/samples/interference.session",
    "share/halvern/samples/middle.LST",
    "share/halvern/samples/three-speeds.parameters",
    "share/halvern/samples/three-speeds.session",
    "share/halvern/samples/two-species.parameters",
    "share/halvern/samples/two-species.session",
    "share/icons/hicolor/scalable/apps/org.halvern.halvern.svg",
    "share/man/man1/halvern-replay.1.gz",
    "share/man/man1/halvern-simulate.1.gz",
    "share/man/man1/halvern.1.gz",
    "share/man/man5/halvern-list.5.gz",
    "share/man/man5/halvern-scan.5.gz",
    "share/man/man5/halvern-session.5.gz",
    "share/metainfo/org.halvern.halvern.metainfo.xml",
    "share/mime/packages/halvern.xml",
]
# The manual is a page or a text for each chapter; a package has its license and changelog in other forms.
MORE = ("share/doc/", "share/doc-base/", "share/halvern/samples/expected/")


def install(prefix, **variables):
    command = [CMAKE, "--install", BUILD, "--prefix", prefix]
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL, env=os.environ | variables)


def modes(prefix):
    """The mode of each file by its path; the folder of libraries is LIB."""
    found = {}
    for path in sorted(prefix.rglob("*")):
        if path.is_file():
            name = path.relative_to(prefix).as_posix()
            if name.endswith("/halvern/halvern-render.so"):
                name = "LIB/halvern/halvern-render.so"
            found[name] = oct(path.stat().st_mode & 0o777)
    return found


class Installation(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.scratch = pathlib.Path(tempfile.mkdtemp(prefix="halvern-test-")).resolve()
        cls.addClassCleanup(shutil.rmtree, cls.scratch)
        install(cls.scratch / "first")
        cls.place = cls.scratch / "a place with blanks"
        (cls.scratch / "first").rename(cls.place)
        cls.environment = os.environ | {"PATH": f"{cls.place}/bin:/usr/bin:/bin"}

    def run_in(self, folder, *command, **variables):
        folder.mkdir(exist_ok=True)
        how = {"stdin": subprocess.DEVNULL, "capture_output": True, "text": True, "check": False}
        ran = subprocess.run(command, cwd=folder, env=self.environment | variables, **how)
        return ran.returncode, ran.stdout, ran.stderr

    def test_every_file_has_its_place_and_its_mode(self):
        found = modes(self.place)
        listed = {name: mode for name, mode in found.items() if not name.startswith(MORE)}
        wanted = dict.fromkeys(PROGRAMS, "0o755") | {name: "0o644" for name in OTHERS if not name.startswith(MORE)}
        self.assertEqual(listed, wanted)
        for name in (n for n in found if n.startswith(MORE)):
            self.assertEqual(found[name], "0o755" if name.endswith(".sh") else "0o644", name)
        for name in OTHERS:
            self.assertIn(name, found)
        manual = [name for name in found if name.startswith("share/doc/halvern/manual/index.")]
        self.assertEqual(len(manual), 1, manual)
        self.assertEqual(len({"share/doc/halvern/COPYING.LESSER", "share/doc/halvern/copyright"} & set(found)), 1)

    def test_the_same_files_come_to_lie_in_a_staging_folder(self):
        stage = self.scratch / "stage"
        install("/opt/halvern", DESTDIR=str(stage))
        self.assertEqual(modes(stage / "opt/halvern"), modes(self.place))

    def test_the_samples_give_what_they_should_with_the_programs_beside_them(self):
        check = self.place / "share/halvern/samples/check"
        status, told, complaints = self.run_in(self.scratch, check, PATH="/usr/bin:/bin")
        self.assertEqual((status, complaints), (0, ""), told)
        samples = sorted(path.stem for path in (self.place / "share/halvern/samples").glob("*.session"))
        self.assertEqual(len(samples), 3)
        self.assertEqual(sorted(line.split(":")[0] for line in told.splitlines()), samples)

    def test_pictures_are_drawn_by_what_lies_beside_the_program_and_by_nothing_else(self):
        samples = self.place / "share/halvern/samples"
        status, _, complaints = self.run_in(self.scratch, samples / "make", "scans", "two-species")
        self.assertEqual((status, complaints), (0, ""))
        folder = self.scratch / "scans/two-species"
        script = "click GetListNow\nchoose middle.LST\nclick Get_MenFromScan\nrender a.png\n"
        (folder / "draw.session").write_text(script, encoding="utf-8")
        self.assertEqual(self.run_in(folder, "halvern-replay", "draw.session"), (0, "", ""))
        self.assertTrue((folder / "a.png").read_bytes().startswith(b"\x89PNG"))
        (module,) = self.place.rglob("halvern-render.so")
        away = module.rename(self.scratch / "away")
        status, _, complaint = self.run_in(folder, "halvern-replay", "draw.session")
        away.rename(module)
        self.assertEqual(status, 1)
        self.assertIn(f"draw.session:4: the renderer can't be loaded: {self.place}/", complaint)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
