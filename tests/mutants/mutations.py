"""The mutants of a source file: small slips that a tired person could make, each in a copy of its own.

Where a sign is an operator and where it belongs to a type is told by the layout: binary operators stand between blanks,
the brackets of templates, pointers and references do not.
"""

import collections
import re

Mutant = collections.namedtuple("Mutant", "file line column change old new source")
"""Of `file`, `old` at `line` and `column` (both from 1) becomes `new`. `change` names it: "< -> <=", or with "#2"
behind it for the second place of its kind in lines that read the same. `source` is the line without its indent."""

SKIPPED = re.compile(
    r"""//[^\n]* | /\*.*?\*/
    | R"(?P<mark>\w*)\(.*?\)(?P=mark)" | (?:\bu8)?"(?:\\.|[^"\\\n])*" | (?<![0-9a-fA-F])'(?:\\.|[^'\\\n])+'
    | ^[ ]*\#(?:[^\n]*\\\n)*[^\n]* | \bstatic_assert\b[^;]*; | \btemplate\ <[^\n]*> | \boperator[^\s(\w]+""",
    re.VERBOSE | re.DOTALL | re.MULTILINE)

SWAPS = [
    # The limits of comparisons.
    (r"(?<= )<(?= )", "<="), (r"(?<= )<=(?= )", "<"), (r"(?<= )>(?= )", ">="), (r"(?<= )>=(?= )", ">"),
    (r"(?<= )==(?= )", "!="), (r"(?<= )!=(?= )", "=="),
    # Neighbours: one step to the other side, or none.
    (r"(?<= )\+ 1(?![\w.'])", "- 1"), (r"(?<= )- 1(?![\w.'])", "+ 1"),
    (r"(?<= )\+ 1(?![\w.'])", ""), (r"(?<= )- 1(?![\w.'])", ""),
    # Arithmetic.
    (r"(?<= )\+(?= )(?! 1(?![\w.']))", "-"), (r"(?<= )-(?= )(?! 1(?![\w.']))", "+"),
    (r"(?<= )\*(?= )", "/"), (r"(?<= )/(?= )", "*"), (r"(?<= )\+=(?= )", "-="), (r"(?<= )-=(?= )", "+="),
    # The two constants from revolutions to radians, and the half weight at the ends of an integral.
    (r"\b0\.1047196\b", "0.104719755"), (r"\b0\.104719755\b", "0.1047196"), (r"(?<![\w.])0\.5(?=F?\b)", "1.0"),
    (r"(?<= )&&(?= )", "||"), (r"(?<= )\|\|(?= )", "&&"),
    # A value that stays wider than a single.
    (r"\bSingle(?=\()", ""),
]

# A statement of one line that calls something, with what it is assigned to; what it stands behind is complete.
CALL = re.compile(r"^ +(?!return\b|throw\b|if\b|for\b|while\b|switch\b|do\b|else\b|static_cast<void>)"
                  r"[A-Za-z_][\w:]*(?:<\w+>)?(?:(?:\.|->|\(\w*\)\.|\(\w*\)->)\w+)*\(.*\);$", re.MULTILINE)
WIDER = re.compile(r"(?:\bdouble|\bauto|\bExtended) \w+ = $")
FUNCTION = re.compile(r"^(?:\w.*|.*\]\s*(?:\([^()]*\))?(?: ->.*)?) \{", re.MULTILINE)


def blanked(text):
    """The text with comments, texts, directives and heads of templates blanked out, every place where it was."""
    return SKIPPED.sub(lambda match: re.sub(r"[^\n]", "\0", match[0]), text)


def rounds_nothing(code, at):
    """Whether what Single gives at this place is stored as a single at once, so that the store rounds just as well."""
    head = " ".join(code[max(0, at - 200):at].rpartition(";")[2].split()) + " "
    if re.search(r"[=?:] $", head):
        return not WIDER.search(head)
    if not head.rstrip().endswith("return"):
        return False
    functions = list(FUNCTION.finditer(code, 0, at))
    return bool(functions) and functions[-1][0].startswith("float ") and "[" not in head


def mutants_of(file, text):
    """All mutants of a file, in the order of their places."""
    code = blanked(text)
    found = []
    for pattern, new in SWAPS:
        for match in re.finditer(pattern, code):
            if match[0] == "Single" and rounds_nothing(code, match.start()):
                continue
            found.append((match.start(), match[0], new, f"{match[0]} -> {new or 'nothing'}"))
    for match in CALL.finditer(code):
        if not re.search(r"(?:[;{}:)]|\belse|\A)$", code[:match.start()].replace("\0", "").rstrip()):
            continue
        start = match.start() + len(match[0]) - len(match[0].lstrip())
        old = text[start:match.end()]
        # Of a declaration like "Type name(value);" what follows would not compile: it is no call.
        found.append((start, old, ";", "call -> nothing"))
    return sorted(numbered(file, text, found), key=lambda mutant: (mutant.line, mutant.column, mutant.change))


def numbered(file, text, found):
    seen = collections.Counter()
    for start, old, new, change in sorted(found):
        line = text.count("\n", 0, start) + 1
        begin = text.rfind("\n", 0, start) + 1
        end = text.find("\n", start)
        source = text[begin:end].strip()
        seen[source, change] += 1
        if seen[source, change] > 1:
            change = f"{change} #{seen[source, change]}"
        yield Mutant(file, line, start - begin + 1, change, old, new, source)


def mutated(text, mutant):
    """The text of the file with the slip in it."""
    lines = text.splitlines(keepends=True)
    start = sum(map(len, lines[:mutant.line - 1])) + mutant.column - 1
    assert text.startswith(mutant.old, start), mutant
    return text[:start] + mutant.new + text[start + len(mutant.old):]
