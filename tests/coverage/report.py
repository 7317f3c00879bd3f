"""Holds the coverage of the tests against the goals: report.py COVERAGE.json EXCEPTIONS.txt [ROOM...]

Branches: each outcome of each condition that stands alone or within a decision. MC/DC: each condition of a decision with
several has been shown to turn the decision by itself (modified condition/decision coverage).

An exception names what no test can reach, and why. It is a block of lines:

    FILE: text that the line of source contains
      reason

A line of source that matches one is not counted. An exception whose lines are all reached is told, and is a failure.
"""

import collections
import json
import os
import sys

# Room: goals for branches and for MC/DC, in per cent.
GOALS = {
    "store": (100, 95),
    "intake": (100, 95),
    "conditioning": (100, 95),
    "analysis": (100, 95),
    "wide": (100, 95),
    "output": (100, 95),
    "plot": (95, 0),
    "shell": (95, 0),
    "ui": (95, 0),
}


class Outcomes:
    """What the tests saw of a file: per place, the counts of true and false; per decision, its shown conditions."""

    def __init__(self):
        self.branches = collections.defaultdict(lambda: [0, 0])
        self.decisions = collections.defaultdict(list)

    def add(self, entry):
        for line, column, _, _, count_true, count_false, *_ in entry["branches"]:
            counts = self.branches[(line, column)]
            counts[0] += count_true
            counts[1] += count_false
        for line, column, _, _, _, _, conditions in entry["mcdc_records"]:
            shown = self.decisions[(line, column)]
            shown.extend([False] * (len(conditions) - len(shown)))
            for index, is_shown in enumerate(conditions):
                shown[index] = shown[index] or is_shown


class Exceptions:
    """The lines of source that no test can reach."""

    def __init__(self, path):
        self.rows = []
        self.needed = set()
        with open(path, encoding="utf-8") as text:
            for line in text:
                if line.strip() and not line.startswith((" ", "#")):
                    file, _, part = line.strip().partition(": ")
                    self.rows.append((file, part))

    def holds(self, file, source):
        for row, (where, part) in enumerate(self.rows):
            if where == file and part in source:
                self.needed.add(row)
                return True
        return False

    def untrue(self):
        return [": ".join(row) for index, row in enumerate(self.rows) if index not in self.needed]


def gaps(outcomes):
    """Line, column, what is missing, in how many; and the totals of branches and conditions by line."""
    missing = []
    for (line, column), counts in sorted(outcomes.branches.items()):
        never = [word for word, count in zip(("true", "false"), counts) if count == 0]
        if never:
            missing.append((line, column, "branch", "never " + " nor ".join(never), len(never)))
    for (line, column), shown in sorted(outcomes.decisions.items()):
        alone = [str(index + 1) for index, is_shown in enumerate(shown) if not is_shown]
        if alone:
            missing.append((line, column, "mcdc", "not shown alone: condition " + ", ".join(alone), len(alone)))
    return missing


def main():
    with open(sys.argv[1], encoding="utf-8") as text:
        data = json.load(text)
    exceptions = Exceptions(sys.argv[2])
    rooms = sys.argv[3:] or list(GOALS)
    files = collections.defaultdict(Outcomes)
    for entry in data["data"][0]["files"]:
        name = os.path.relpath(entry["filename"], "src")
        files[name].add(entry)

    totals = {room: {"branch": [0, 0, 0], "mcdc": [0, 0, 0]} for room in GOALS}
    for name in sorted(files):
        room = name.split("/")[0]
        if room not in GOALS:
            continue
        with open(os.path.join("src", name), encoding="utf-8") as text:
            source = text.read().split("\n")
        total = totals[room]
        total["branch"][1] += 2 * len(files[name].branches)
        total["mcdc"][1] += sum(len(shown) for shown in files[name].decisions.values())
        for line, column, kind, what, count in gaps(files[name]):
            if exceptions.holds(name, source[line - 1]):
                total[kind][2] += count
                continue
            total[kind][0] += count
            if room in rooms:
                print(f"src/{name}:{line}:{column}: {kind}: {what}: {source[line - 1].strip()}")

    failed = False
    print(f"{'room':13} {'branches':>8} {'reached':>8} {'excepted':>8} {'%':>6}   {'MC/DC':>6} {'shown':>6} {'excepted':>8} {'%':>6}")
    for room in rooms:
        cells, verdict = [], "as it should be"
        for kind, goal in zip(("branch", "mcdc"), GOALS[room]):
            missed, count, excepted = totals[room][kind]
            counted = count - excepted
            share = 100 * (counted - missed) / counted if counted else 100
            cells.append((count, counted - missed, excepted, share))
            if share < goal:
                verdict, failed = "BELOW ITS GOAL", True
        (b, br, bx, bs), (m, mr, mx, ms) = cells
        print(f"{room:13} {b:8} {br:8} {bx:8} {bs:6.1f}   {m:6} {mr:6} {mx:8} {ms:6.1f}   {verdict}")
    for row in exceptions.untrue():
        print(f"tests/coverage/exceptions.txt: no gap is left there: {row}")
        failed = True
    return 1 if failed else 0


sys.exit(main())
