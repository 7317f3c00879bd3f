#!/usr/bin/env python3
"""The mutants of a source: which slips are made, where, and where none may be. mutants_test.py FOLDER takes the folder
of mutations.py."""

import sys

sys.dont_write_bytecode = True
sys.path.insert(0, sys.argv[1])
from mutations import mutants_of, mutated  # noqa: E402

# A source, and all that becomes of it.
CASES = [
    ("    x = a < b;\n", ["    x = a <= b;\n"]),
    ("    x = a >= b && !c;\n", ["    x = a > b && !c;\n", "    x = a >= b || !c;\n"]),
    ("    x = y(J + 1);\n", ["    x = y(J - 1);\n", "    x = y(J );\n"]),
    ("    x = a + 10;\n", ["    x = a - 10;\n"]),
    ("    x = a * b / c;\n", ["    x = a / b / c;\n", "    x = a * b * c;\n"]),
    ("    x = 0.5F * -a;\n", ["    x = 1.0F * -a;\n", "    x = 0.5F / -a;\n"]),
    ("    x = 0.1047196;\n", ["    x = 0.104719755;\n"]),
    # Where the place is a single's own, rounding is no slip: the store rounds.
    ("    const float x = Single(a);\n", []),
    ("    const double x = Single(a);\n", ["    const double x = (a);\n"]),
    ("    S.AveRate(I) = Single(a);\n", ["    ;\n"]),
    # A statement is a line of its own; half a statement is none.
    ("    M.KeldIt.Enable();\n", ["    ;\n"]),
    ("    if (a)\n        Fail(b);\n", ["    if (a)\n        ;\n"]),
    ("    return Sum(a);\n", []),
    ("    const auto x =\n        Sum(a);\n", []),
    # No slips in comments, texts, directives, types and their brackets.
    ("// a < b && c\n", []),
    ("    /* a < b\n       c + d */\n", []),
    ('    x = "a < b \\" + 1";\n', []),
    ("    x = ' ';\n    y = '\\'';\n", []),
    ("#if defined(A) && defined(B)\n", []),
    ("template <class A, class B>\n", []),
    ("    std::span<const float> x(y);\n", []),
    ("    const char* x = nullptr;\n    auto&& y = z;\n", []),
    ("static_assert(sizeof(Boolean) == 2);\n", []),
    ("    bool operator<(Place other);\n", []),
]

failed = 0
for text, wanted in CASES:
    got = [mutated(text, mutant) for mutant in mutants_of("a.cpp", text)]
    if sorted(got) != sorted(wanted):
        failed += 1
        print(f"{text!r}\n  gives  {sorted(got)}\n  wanted {sorted(wanted)}")

# Two places of one kind in a line have names of their own, and a name stays when lines come before it.
names = [mutant.change for mutant in mutants_of("a.cpp", "    x = a < b && c < d;\n")]
if names != ["< -> <=", "&& -> ||", "< -> <= #2"]:
    failed += 1
    print(f"the names are {names}")
if [m.change for m in mutants_of("a.cpp", "\n\n    x = a < b && c < d;\n")] != names:
    failed += 1
    print("the names change with the lines above")

print(f"{failed} of {len(CASES) + 2} cases failed" if failed else f"{len(CASES) + 2} cases hold")
sys.exit(1 if failed else 0)
