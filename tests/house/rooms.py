#!/usr/bin/env python3
"""The order of the rooms: rooms.py SRC lists the includes under SRC that run against it, and fails if there are any.

A room may include itself and the rooms on the floors under it, and a few of its neighbours; render takes of the program
only the headers of ui, and replay of render only the one that the loaded module is known by; the core, all rooms up to
shell, includes no header of the toolkit; headers are named from SRC on, never by way of "." or "..".
"""

import pathlib
import re
import sys

FLOORS = [
    ["ui"],
    ["store"],
    ["plot"],
    ["intake", "conditioning", "analysis", "wide", "output"],
    ["shell"],
    ["render"],
    ["replay", "desktop"],
]
SIDEWAYS = {("conditioning", "output"), ("wide", "analysis"), ("output", "analysis")}
ALONE = ["simulate"]
# A loaded module that linked the core would have a second store: it takes no other room's headers.
ONLY_ROOM = {"render": "ui"}
# What of a room below is all that a room knows.
ONLY_HEADER = {("replay", "render"): "render/drawing.h"}

FLOOR = {room: floor for floor, rooms in enumerate(FLOORS) for room in rooms}
HIGHEST_OF_CORE = FLOOR["shell"]
INCLUDE = re.compile(r'\s*#\s*include\s*["<]([^">]+)[">]')
TOOLKIT = re.compile(r"Qt?[A-Z]\w*(/|$)|q[a-z0-9]+\.h$")


def complaint(room, header):
    """What is wrong with a header that a file of a room includes, or None."""
    steps = header.split("/")
    if "." in steps or ".." in steps:
        return f"{header} is named by a relative path"
    if FLOOR.get(room, HIGHEST_OF_CORE + 1) <= HIGHEST_OF_CORE and TOOLKIT.match(header):
        return f"{room} is part of the core and includes the toolkit's {header}"
    other = steps[0]
    if len(steps) == 1 or other == room or other not in [*FLOOR, *ALONE]:
        return None
    if room in ALONE or other in ALONE:
        return f"{room} includes {header}, and {room if room in ALONE else other} stands alone"
    if FLOOR[other] > FLOOR[room]:
        return f"{room} includes {header} of a room above it"
    if FLOOR[other] == FLOOR[room] and (room, other) not in SIDEWAYS:
        return f"{room} includes {header} of a room beside it"
    if other != ONLY_ROOM.get(room, other):
        return f"{room} includes {header}, and takes only headers of {ONLY_ROOM[room]}"
    if header != ONLY_HEADER.get((room, other), header):
        return f"{room} includes {header}, and knows only {ONLY_HEADER[room, other]} of that room"
    return None


def complaints(src):
    for path in sorted(src.rglob("*")):
        if path.suffix not in (".h", ".hpp", ".cpp", ".cc"):
            continue
        parts = path.relative_to(src).parts
        room = parts[0] if len(parts) > 1 else ""
        if room not in [*FLOOR, *ALONE]:
            yield f"{path}:1: it stands in no room that has a floor"
            continue
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            include = INCLUDE.match(line)
            found = include and complaint(room, include[1])
            if found:
                yield f"{path}:{number}: {found}"


def main():
    src = pathlib.Path(sys.argv[1])
    if not src.is_dir():
        sys.exit(f"rooms: there is no folder {src}")
    found = list(complaints(src))
    print("\n".join(found) if found else "every include runs down the house")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
