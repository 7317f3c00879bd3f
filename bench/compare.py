#!/usr/bin/env python3
"""compare.py BUILD REPORT [--quick] [FILTER]: the program, what it is measured by, and other tools, in turn.

BUILD is the folder of the built programs. Prints a table of the rows whose names the regular expression FILTER matches,
and writes REPORT when none is left out. DISPLAY names a display for the desktop; without one its rows are left out.
"""

import argparse
import collections
import functools
import os
import pathlib
import platform
import re
import shutil
import statistics
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
PYTHON = "/usr/bin/python3"  # the one that the packages of the peers are for
SPLASH_MILLISECONDS = 1750.0
FULL_SCANS = 500
SIZES = (63, 125, 250, 500)
SLOW_WAYS = ("QPainter", "getline and stod", "to_chars", "sprintf")  # for one round only

Goal = collections.namedtuple("Goal", "text figure most least", defaults=(None, None))
Row = collections.namedtuple("Row", "name title goals unit", defaults=("ms",))


# A figure is worked out of the medians: figure(median) with median(way).
def times(over):
    return lambda median: median("program") / median(over)


def ahead(of):
    return lambda median: median(of) / median("program")


def itself(median):
    return median("program")


def beside(most, *peers):
    """At most so many times the yardstick, and ahead of peers."""
    return [Goal("x yardstick", times("yardstick"), most=most)] + [
        Goal(f"x ahead of {peer}", ahead(peer), least=least) for least, peer in peers
    ]


PAINT_GOALS = beside(2.0, (6.0, "Qwt"), (65.0, "QCustomPlot"))
ROWS = [
    Row("load", "load 500 scans of 2048 points", beside(1.5, (7.0, "numpy.loadtxt"))),
    Row("dc/dt", "dc/dt of all pairs to averages", beside(1.5, (3.0, "numpy"))),
    Row("wide", "wide distribution, eleven radii", [Goal("x ahead of numpy", ahead("numpy"), least=1.0)]),
    Row("repaint 665x500", "repaint 2 048 000 points, 665 x 500", PAINT_GOALS),
    Row("repaint 1250x700", "repaint 2 048 000 points, 1250 x 700", PAINT_GOALS),
    Row("zoom 665x500", "a quarter of the radii, 665 x 500", PAINT_GOALS),
    Row("zoom 1250x700", "a quarter of the radii, 1250 x 700", PAINT_GOALS),
    Row("noisy 665x500", "repaint with a camera's noise, 665 x 500", []),
    Row("noisy 1250x700", "repaint with a camera's noise, 1250 x 700", []),
    Row("re-add", "fringes re-added to all scans", []),
    Row("table", "raw scan table, 20.5 MB", beside(2.0, (6.0, "sprintf"))),
    Row("plot file", "plot data file, 2 048 000 points", beside(2.0, (6.0, "sprintf"))),
    Row("start", "replay of an empty script", [Goal("x bare Qt Core", times("Qt Core"), most=1.3)]),
    Row("session", "replay: load, analysis, two files", [Goal("ms", itself, most=45.0)]),
    Row("session 60x800", "the same, 60 scans of 800 points", [Goal("ms", itself, most=15.0)]),
    Row("desktop", "desktop to first picture, less splash", [Goal("x Qt window", times("Qt window"), most=1.3)]),
    Row("memory", "replay, full size", [Goal("MB", itself, most=60.0)], "MB"),
    Row("memory 60x800", "replay, 60 scans of 800 points", [Goal("MB", itself, most=30.0)], "MB"),
    Row(
        "memory desktop",
        "desktop at its first picture",
        [Goal("x Qt window and empty replay", lambda m: m("program") / (m("Qt window") + m("empty replay")), most=1.0)],
        "MB",
    ),
]
GROWTH = (("load", "load"), ("dc/dt", "analysis"), ("repaint 665x500", "repaint, 665 x 500"), ("table", "table"))

SESSION = """\
click GetListNow
choose "{scans}/every1.LST"
click Set_MenManually
type Text1 5.95
click IsOK
click KeldIt
click SetKeldZero
click Command1
click DoGofS
mouse left+ctrl 0.5 0
mouse right+ctrl 2.4 0
click Command1
click KeldOutCorrected
choose "{results}/dcdt.txt"
click KeldOutGofS
choose "{results}/gofs.txt"
"""


class Samples:
    """Figures by row, scans and way."""

    def __init__(self):
        self.figures = collections.defaultdict(list)

    def add(self, row, scans, way, figure):
        self.figures[row, scans, way].append(figure)

    def take_lines(self, text):
        for line in text.splitlines():
            name, figure = line.rsplit(" ", 1)
            row, scans, way = name.rsplit("/", 2)
            self.add(row, int(scans), way, float(figure))

    def has(self, row, scans, way):
        return (row, scans, way) in self.figures

    def median(self, row, scans, way):
        return statistics.median(self.figures.get((row, scans, way), ()))

    def ways(self, row, scans):
        return [way for (r, s, way) in self.figures if (r, s) == (row, scans)]


class Bench:
    def __init__(self, build, scratch, wanted):
        self.bench = build / "bench"
        self.replay = build / "src" / "replay" / "halvern-replay"
        self.scratch = scratch
        self.wanted = wanted
        self.samples = Samples()
        self.left_out = {}
        self.environment = {**os.environ, "TMPDIR": str(scratch), "XDG_RUNTIME_DIR": str(scratch), "HOME": str(scratch)}
        self.environment.pop("WAYLAND_DISPLAY", None)

    def run(self, *command, **more):
        environment = {**self.environment, **more}
        words = [str(word) for word in command]
        done = subprocess.run(words, env=environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, timeout=600)
        if done.returncode != 0:
            raise RuntimeError(f"{' '.join(words)}: status {done.returncode}\n{done.stderr}")
        return done.stdout

    def prepare(self):
        self.run(self.bench / "make_data", self.scratch)
        for name, text in (
            ("empty", ""),
            ("full", SESSION.format(scans=self.scratch / "full", results=self.scratch)),
            ("usual", SESSION.format(scans=self.scratch / "usual", results=self.scratch)),
        ):
            (self.scratch / f"{name}.session").write_text(text, encoding="utf-8")
        script = self.scratch / "menus.session"
        script.write_text("print menus\n", encoding="utf-8")
        menus = self.run(self.replay, script).splitlines()
        self.items = sum(line.startswith("menu: ") and not line.startswith("menu: Plotit.") for line in menus)

    def measure_in_process(self, slow_ones_too, repetitions):
        """The ways of a row by turns in one process."""
        for program, arguments in (("scans", [self.scratch / "full"]), ("repaint", [])):
            command = [self.bench / program, *arguments]
            names = self.run(*command, f"--benchmark_filter=^({'|'.join(self.wanted)})/", "--benchmark_list_tests")
            groups = collections.defaultdict(list)
            for name in names.splitlines():
                group, way = name.removesuffix("/real_time").rsplit("/", 1)
                if slow_ones_too or way not in SLOW_WAYS:
                    groups[group].append(way)
            for group, ways in groups.items():
                self.samples.take_lines(
                    self.run(
                        *command,
                        f"--benchmark_filter=^{group}/({'|'.join(ways)})(/|$)",
                        f"--benchmark_repetitions={repetitions}",
                        "--benchmark_enable_random_interleaving=true",
                        "--benchmark_min_time=0.02",
                    )
                )

    def launch(self, row, way, *command, less=0.0, memory_of=None):
        milliseconds, kilobytes = self.run(self.bench / "processes" / "launch", *command).split()
        self.samples.add(row, FULL_SCANS, way, float(milliseconds) - less)
        if memory_of is not None:
            self.samples.add(memory_of, FULL_SCANS, way, float(kilobytes) / 1000.0)

    def measure_processes(self, times_over):
        processes = self.bench / "processes"
        for _ in range(times_over):
            if "start" in self.wanted:
                self.launch("start", "program", self.replay, self.scratch / "empty.session")
                self.launch("start", "Qt Core", processes / "qt_core")
                self.launch("start", "Qt Core with Widgets", processes / "qt_core_with_widgets")
                self.launch("start", "nothing", processes / "nothing")
            for name, size in (("full", ""), ("usual", " 60x800")):
                if {"session" + size, "memory" + size} & self.wanted:
                    self.launch("session" + size, "program", self.replay, self.scratch / f"{name}.session",
                                memory_of="memory" + size)  # fmt: skip

    def measure_desktop(self, times_over):
        if not {"desktop", "memory desktop"} & self.wanted:
            return
        if "DISPLAY" not in os.environ:
            self.left_out["the desktop"] = "no display"
            return
        processes = self.bench / "processes"
        for _ in range(times_over):
            self.launch("desktop", "program", processes / "desktop_start", less=SPLASH_MILLISECONDS,
                        memory_of="memory desktop")  # fmt: skip
            self.launch("desktop", "Qt window", processes / "qt_window", self.items, memory_of="memory desktop")
            self.launch("desktop", "empty replay", self.replay, self.scratch / "empty.session", memory_of="memory desktop")

    def peers(self):
        """Name, whether it is there, the rows it has figures for, whether it takes long, and the command."""
        peers, built = HERE / "peers", self.bench / "peers"
        paint = {"repaint 665x500", "repaint 1250x700", "zoom 665x500", "zoom 1250x700"}
        numpy = [PYTHON, peers / "numpy_numbers.py", self.scratch]
        reckoned = [row for row in ("load", "dc/dt", "wide") if row in self.wanted]
        written = [row for row in ("table", "plot file") if row in self.wanted]
        return [
            ("numpy", has_module("numpy"), set(reckoned), False, [*numpy, *reckoned]),
            ("numpy.savetxt", has_module("numpy"), set(written), True, [*numpy, *written]),
            ("pandas", has_module("pandas"), {"load"}, True, [PYTHON, peers / "pandas_scans.py", self.scratch]),
            ("R fread", has_r("data.table"), {"load"}, True, ["Rscript", peers / "fread.R", self.scratch]),
            ("matplotlib", has_module("matplotlib"), paint, True, [PYTHON, peers / "matplotlib_plot.py", self.scratch]),
            ("gnuplot", shutil.which("gnuplot") is not None, paint, True,
             ["gnuplot", "-e", f"points='{self.scratch}/plot.xy'", peers / "gnuplot.gp"]),
            ("QCustomPlot", (built / "peer_qcustomplot").exists(), paint, True, [built / "peer_qcustomplot", self.scratch]),
            ("Qwt", (built / "peer_qwt").exists(), paint, False, [built / "peer_qwt", self.scratch]),
        ]  # fmt: skip

    def measure_peers(self, slow_ones_too):
        for name, is_there, rows, is_slow, command in self.peers():
            if not rows & self.wanted or (is_slow and not slow_ones_too):
                continue
            if is_there:
                self.samples.take_lines(self.run(*command, QT_QPA_PLATFORM="offscreen"))
            else:
                self.left_out[name] = "not installed"


@functools.cache
def has_module(name):
    return subprocess.run([PYTHON, "-c", f"import {name}"], stderr=subprocess.DEVNULL, check=False).returncode == 0


@functools.cache
def has_r(library):
    if shutil.which("Rscript") is None:
        return False
    return subprocess.run(["Rscript", "-e", f"library({library})"], capture_output=True, check=False).returncode == 0


def judged(row, samples):
    """Text of each goal, figure, limit, and whether it is met; None where a part was not measured."""
    for goal in row.goals:
        try:
            figure = goal.figure(lambda way: samples.median(row.name, FULL_SCANS, way))
        except statistics.StatisticsError:
            yield goal, None, None
            continue
        yield goal, figure, figure <= goal.most if goal.most is not None else figure >= goal.least


def limit_of(goal):
    return f"at most {goal.most:g} {goal.text}" if goal.most is not None else f"at least {goal.least:g} {goal.text}"


def number(figure):
    return f"{figure:.2f}" if figure < 10 else f"{figure:.1f}"


def table_lines(bench):
    """A line for each goal; the first one of a row has its medians."""
    samples = bench.samples
    for row in ROWS:
        if row.name not in bench.wanted or not samples.has(row.name, FULL_SCANS, "program"):
            continue
        cells = [row.title, number(samples.median(row.name, FULL_SCANS, "program")) + " " + row.unit]
        cells.append(number(samples.median(row.name, FULL_SCANS, "yardstick")) + " " + row.unit
                     if samples.has(row.name, FULL_SCANS, "yardstick") else "")  # fmt: skip
        if not row.goals:
            yield [*cells, "", "", ""]
        for goal, figure, is_met in judged(row, samples):
            met = "not measured" if figure is None else "yes" if is_met else "NO"
            yield [*cells, limit_of(goal), "" if figure is None else number(figure), met]
            cells = [""] * len(cells)


HEADINGS = ["work", "program", "yardstick", "goal", "figure", "met"]


def print_table(lines):
    lines = [HEADINGS, *lines]
    widths = [max(len(line[i]) for line in lines) for i in range(len(HEADINGS))]
    for line in lines:
        print("  ".join(cell.ljust(width) for cell, width in zip(line, widths)).rstrip())


def markdown_table(headings, lines):
    def row(cells):
        return "| " + " | ".join(cells) + " |"

    return [row(headings), row(["---"] * len(headings)), *(row(line) for line in lines)]


def peers_lines(bench):
    """For each row that has other ways, the medians of all of them, and as ratios to the yardstick."""
    samples = bench.samples
    for row in ROWS:
        ways = sorted(samples.ways(row.name, FULL_SCANS), key=lambda way: samples.median(row.name, FULL_SCANS, way))
        if row.name not in bench.wanted or len(ways) < 2:
            continue
        yardstick = "yardstick" if "yardstick" in ways else "program"
        base = samples.median(row.name, FULL_SCANS, yardstick)
        for way in ways:
            figure = samples.median(row.name, FULL_SCANS, way)
            yield [row.title, way, number(figure) + " " + row.unit, number(figure / base)]


def growth_lines(samples):
    for name, title in GROWTH:
        for way in ("program", "yardstick"):
            if samples.has(name, SIZES[0], way):
                yield [title, way, *(number(samples.median(name, scans, way)) for scans in SIZES)]


def machine():
    memory = os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES") / 2**30
    compiler = subprocess.run(["g++", "-dumpfullversion"], capture_output=True, text=True, check=False).stdout.strip()
    system = re.search(r'PRETTY_NAME="(.*?)"', pathlib.Path("/etc/os-release").read_text(encoding="utf-8"))
    return (f"{os.cpu_count()} cores ({platform.machine()}), {memory:.0f} GB, {system[1] if system else platform.system()}, "
            f"g++ {compiler}, built as users run the program")  # fmt: skip


def notes():
    """The remarks on goals that are missed, by row."""
    text = (HERE / "notes.md").read_text(encoding="utf-8")
    parts = re.split(r"^## (.*)$", text, flags=re.MULTILINE)[1:]
    return {name.strip(): note.strip() for name, note in zip(parts[::2], parts[1::2])}


def missed_lines(bench):
    remarks = notes()
    for row in ROWS:
        for goal, figure, is_met in judged(row, bench.samples):
            if figure is None or is_met:
                continue
            limit = goal.most if goal.most is not None else goal.least
            by = figure / limit if goal.most is not None else limit / figure
            yield f"- **{row.title}**: {number(figure)} {goal.text}, where the goal is {limit_of(goal)}: missed by a factor of {by:.2f}. "
        if row.name in remarks and any(is_met is False for _, _, is_met in judged(row, bench.samples)):
            yield f"  {remarks[row.name]}"


def write_report(path, bench, rounds):
    lines = [
        "# Performance",
        "",
        "Written by `scripts/bench`. Figures are medians over all runs, in milliseconds of the clock on the wall, or in MB;",
        f"the runs of the program, of its yardstick and of other tools take turns ({rounds} rounds). The full size is 500 scans",
        "of 2048 points in the interference layout, 27 MB in the page cache; results go to a file system in memory.",
        "",
        "A *yardstick* is the same work as a tight single-threaded loop that trusts its data, in `bench/`. Those of the load,",
        "dc/dt, the wide distribution and the tables give the bits and bytes of the program, which each run checks; that of the",
        "painting gives the same pixels but for one in a hundred at most.",
        "",
        f"The machine: {machine()}. It may be shared: ratios tell more than milliseconds.",
        "",
        "## Goals",
        "",
        *markdown_table(HEADINGS, table_lines(bench)),
        "",
        "## What is missed",
        "",
        *(list(missed_lines(bench)) or ["Nothing."]),
        "",
        "## Beside other tools",
        "",
        "The ratio is to the yardstick, or to the program where there is none.",
        "",
        *markdown_table(["work", "way", "median", "ratio"], peers_lines(bench)),
        "",
        "## Growth",
        "",
        "Milliseconds at an eighth, a quarter, a half and all of the scans.",
        "",
        *markdown_table(["work", "way", *(f"{scans} scans" for scans in SIZES)], growth_lines(bench.samples)),
    ]
    if bench.left_out:
        lines += ["", "## Left out", ""] + [f"- {name}: {why}" for name, why in bench.left_out.items()]
    path.write_text("\n".join(line.rstrip() for line in lines) + "\n", encoding="utf-8")


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("build", type=pathlib.Path)
    arguments.add_argument("report", type=pathlib.Path)
    arguments.add_argument("filter", nargs="?", default="")
    arguments.add_argument("--quick", action="store_true", help="two rounds in place of five")
    options = arguments.parse_intermixed_args()

    wanted = {row.name for row in ROWS if re.search(options.filter, row.name)}
    if not wanted:
        sys.exit(f"no row has a name like {options.filter}; there are: {', '.join(row.name for row in ROWS)}")
    rounds = 2 if options.quick else 5
    memory = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
    with tempfile.TemporaryDirectory(dir=memory) as scratch:
        bench = Bench(options.build.resolve(), pathlib.Path(scratch), wanted)
        bench.prepare()
        for turn in range(rounds):
            print(f"round {turn + 1} of {rounds}", file=sys.stderr)
            bench.measure_in_process(slow_ones_too=turn == 0, repetitions=3)
            bench.measure_processes(times_over=5)
            bench.measure_desktop(times_over=2)
            bench.measure_peers(slow_ones_too=turn < rounds / 3)
    print_table(table_lines(bench))
    for name, why in bench.left_out.items():
        print(f"left out: {name}: {why}")
    if not options.filter:
        write_report(options.report, bench, rounds)
        print(f"written: {os.path.relpath(options.report)}")


main()
