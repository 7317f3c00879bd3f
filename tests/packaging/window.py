#!/usr/bin/env python3
"""window.py HALVERN DESKTOP: the program's window has the icon, and is known as the desktop entry's in DESKTOP."""

import pathlib
import re
import subprocess
import sys
import tempfile
import time

ID = "org.halvern.halvern"
COLOUR = re.compile(r'fill="#(\w{6})"')
SECONDS = 60


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout


def window_of(process):
    """The main window; the splash window comes first, and its title has no blank."""
    end = time.monotonic() + SECONDS
    while time.monotonic() < end and process.poll() is None:
        for window in output("xdotool", "search", "--onlyvisible", "--pid", str(process.pid)).split():
            if output("xdotool", "getwindowname", window).startswith("Halvern V"):
                return window
        time.sleep(0.1)
    sys.exit(f"no window came up; the program's status is {process.poll()}")


def main():
    program, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    entry = (folder / f"{ID}.desktop").read_text(encoding="utf-8")
    wanted = re.search(r"^StartupWMClass=(.*)$", entry, re.MULTILINE)[1]
    colours = COLOUR.findall((folder / f"{ID}.svg").read_text(encoding="utf-8"))
    with tempfile.TemporaryDirectory() as scratch, subprocess.Popen([program], cwd=scratch) as process:
        try:
            window = window_of(process)
            known_as = re.findall(r'"(.*?)"', output("xprop", "-id", window, "WM_CLASS"))
            icon = output("xprop", "-id", window, "-f", "_NET_WM_ICON", "32x", "-notype", "_NET_WM_ICON")
        finally:
            process.terminate()
    if wanted not in known_as:
        sys.exit(f"the window is known as {known_as}, and the desktop entry has {wanted}")
    missing = [colour for colour in colours if f"0xff{colour}" not in icon.lower()]
    if missing or not colours:
        sys.exit(f"the window's icon has no {missing}: {icon[:200]}")
    print(f"known as {known_as}; the icon has all {len(colours)} colours of the picture")


if __name__ == "__main__":
    main()
