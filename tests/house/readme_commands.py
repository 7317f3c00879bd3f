#!/usr/bin/env python3
"""readme_commands.py TOP REPLAY SIMULATE [CTEST BUILD]: what the documents tell the reader to run is there, and does what
they show.

Scripts are looked at, not run. SIMULATE, the built halvern-simulate, makes the sample anew in a folder of the test's
own; there REPLAY, the built halvern-replay, runs the session scripts of the README. CTEST knows the names of the tests of
the folder BUILD: without them nobody asks whether a pattern of the documents names any.
"""

import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

FENCE = re.compile(r"^```\w*\n(.*?)^```$", re.MULTILINE | re.DOTALL)
INDENTED = re.compile(r"(?:\A|(?<=\n\n))(?: {4}.*\n(?:\n(?= {4}))?)+")
CODE = re.compile(r"`([^`\n]+)`")
LINK = re.compile(r"\]\(([^)#]+)[^)]*\)")
PATH = re.compile(r"^(?:\.ci|scripts|samples|docs|tests|src)/[\w./-]*$")
MADE = re.compile(r"^sample=(\S+)$", re.MULTILINE)
LEFT = re.compile(r"\$sample/([\w.-]+)")
STEP = re.compile(r"^\d+\. .*$", re.MULTILINE)
CAPTION = re.compile(r"(?<!\\)\*((?:\\.|[^*\\])+)\*")
MENU = re.compile(r'^menu: .*? "(.*)"$', re.MULTILINE)
FIGURE = re.compile(r"\d+\.\d{3,}")
IN_BUILD = re.compile(r"^build/([a-z-]+)/(?:src|tests)/")
SCRIPT = re.compile(r"^(?:scripts|\.ci)/[\w-]+$")
PRESET = re.compile(r"^[a-z][a-z-]*$")  # and no "[preset]", PRESET or option
NAME = re.compile(r"^ *Test +#\d+: (.*)$", re.MULTILINE)
PRESET_AT = {"scripts/test": 1, "scripts/environments": 1, "scripts/random-user": 3}


def commands(text):
    """Every command and path of a document: the lines of its blocks, without their comments, and what is in code type."""
    unfenced = FENCE.sub("", text)
    blocks = FENCE.findall(text) + INDENTED.findall(unfenced)
    lines = [line.strip().removeprefix("$ ") for block in blocks for line in block.splitlines()]
    lines += [code.replace("\\|", "|") for code in CODE.findall(INDENTED.sub("", unfenced))]  # as tables have them
    return [words for line in lines if (words := words_of(line.split(" #")[0]))]


def words_of(line):
    try:
        return shlex.split(line)
    except ValueError:  # an apostrophe
        return line.split()


def presets_named(words):
    for script, place in PRESET_AT.items():
        at = words.index(script) + place if script in words else len(words)
        yield from filter(PRESET.match, words[at:at + 1])
    yield from (after for word, after in zip(words, words[1:]) if word == "--preset")
    yield from (built[1] for word in words if (built := IN_BUILD.match(word)))


def patterns_named(words):
    """What a run of the tests is narrowed to; each side of an "or" by itself."""
    if "scripts/test" in words or words[0] == "ctest":
        for word, after in zip(words, words[1:]):
            if word in ("-R", "--tests-regex"):
                yield from after.split("|")


def names_of_tests(ctest, build):
    told = subprocess.run([ctest, "--test-dir", build, "-N"], capture_output=True, text=True, check=True).stdout
    return NAME.findall(told) or sys.exit(f"{build} has no tests")


def missing(top, document, presets, tests):
    text = document.read_text(encoding="utf-8")
    for link in LINK.findall(text):
        if "://" not in link and not (document.parent / link).exists():
            yield f"there is no {link}"
    for words in commands(text):
        for word in filter(PATH.match, words):
            if not (top / word).exists():
                yield f"there is no {word}"
        for word in filter(SCRIPT.match, words):
            if not os.access(top / word, os.X_OK):
                yield f"{word} can't be run"
        for preset in presets_named(words):
            if preset not in presets:
                yield f"there is no preset {preset}"
        for pattern in patterns_named(words) if tests else ():
            if not any(re.search(pattern, test) for test in tests):
                yield f"no test is named so: {pattern}"


def make_sample(top, simulate, folder):
    """The sample where scripts/run makes it, in a folder that stands in for the top folder."""
    made = folder / MADE.search((top / "scripts/run").read_text(encoding="utf-8"))[1]
    subprocess.run([top / "samples/make", simulate, made.parent, made.name], check=True, stdout=subprocess.DEVNULL)
    (folder / "samples").symlink_to(top / "samples")
    return made


def shown_otherwise(text, replay, folder):
    """Blocks of "$ cd FOLDER", "$ .../halvern-replay SCRIPT" and its output show what it prints, and the numbered steps
    have no other figures; "..." stands for the top folder."""
    shown = 0
    for block in FENCE.findall(text):
        way, command, *lines = [*block.splitlines(), ""]
        words = command.removeprefix("$ ").split()
        if not way.startswith("$ cd ") or not words or not words[0].endswith("/halvern-replay"):
            continue
        shown += 1
        where = folder / way.removeprefix("$ cd ")
        ran = subprocess.run([replay, *words[1:]], cwd=where, capture_output=True, text=True, check=False)
        printed = [line.rstrip().replace(str(folder), "...") for line in ran.stdout.splitlines()]
        if ran.returncode != 0 or ran.stderr or printed != lines[:-1]:
            yield "\n".join([f"{command}: status {ran.returncode}", ran.stderr, *printed])
        for figure in FIGURE.findall("\n".join(STEP.findall(text))):
            if figure not in FIGURE.findall(ran.stdout):
                yield f"{command} does not print {figure}"
    if shown == 0:
        yield "no session script is run in it"


def not_in_the_menus(text, replay, made):
    """What the numbered steps set in italics are captions of menu items, before or after the sample has been loaded."""
    script = "print menus\nclick GetListNow\nchoose middle.LST\nprint menus\n"
    menus = subprocess.run([replay, "-"], input=script, cwd=made, capture_output=True, text=True, check=True).stdout
    captions = [caption.replace("&", "") for caption in MENU.findall(menus)]
    for caption in CAPTION.findall("\n".join(STEP.findall(text))):
        if re.sub(r"\\(.)", r"\1", caption) not in captions:
            yield f"there is no menu item {caption}"


def not_left(top, made):
    """The files that scripts/run names to the user are there after the session."""
    for name in LEFT.findall((top / "scripts/run").read_text(encoding="utf-8")):
        if not (made / name).exists():
            yield f"the sample's folder has no {name}, which scripts/run tells of"


def main():
    top, replay, simulate = pathlib.Path(sys.argv[1]).resolve(), sys.argv[2], sys.argv[3]
    tests = names_of_tests(*sys.argv[4:]) if len(sys.argv) > 4 else []
    readme = top / "README.md"
    presets = {preset["name"] for preset in json.loads((top / "CMakePresets.json").read_text())["configurePresets"]}
    documents = [readme, top / "CONTRIBUTING.md", *sorted(top.glob("*/README.md")), *sorted(top.glob("*/*/README.md")),
                 *sorted((top / "docs").glob("**/*.md"))]
    documents = list(dict.fromkeys(documents))
    found = [f"{document}: {what}" for document in documents for what in missing(top, document, presets, tests)]
    with tempfile.TemporaryDirectory() as scratch:
        folder = pathlib.Path(scratch).resolve()
        made = make_sample(top, simulate, folder)
        text = readme.read_text(encoding="utf-8")
        for what in (shown_otherwise(text, replay, folder), not_in_the_menus(text, replay, made), not_left(top, made)):
            found += [f"{readme}: {told}" for told in what]
    if found:
        sys.exit("\n".join(found))
    print(f"{len(documents)} documents hold what they promise")


if __name__ == "__main__":
    main()
