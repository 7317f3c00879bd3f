#!/usr/bin/env python3
"""core_links_no_qt.py NM CORE REPLAY: the library CORE names no symbol of Qt, and the program REPLAY loads none of its
libraries."""

import re
import subprocess
import sys

# Qt's classes, namespaces and functions, as a demangled symbol begins with them or takes them as arguments.
QT = re.compile(r"(?<![\w:])(Q[A-Z]\w+|Qt(Private)?::|qt_\w+|q[A-Z]\w+\()")


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout.splitlines()


def main():
    nm, core, replay = sys.argv[1:]
    symbols = output(nm, "--demangle", core)
    if not any("halvern::" in line for line in symbols):
        sys.exit(f"{core} has no symbol of the program: the wrong file?")
    # An address and a letter stand before the symbol.
    found = [f"{core}: {line[19:]}" for line in symbols if QT.search(line[19:])]
    libraries = output("ldd", replay)
    if not any("libc.so" in line for line in libraries):
        sys.exit(f"{replay} has no list of libraries")
    found += [f"{replay}: {line.split()[0]}" for line in libraries if "libQt" in line]
    if found:
        sys.exit("\n".join(found))
    print(f"{len(symbols)} symbols and {len(libraries)} libraries, none of Qt")


if __name__ == "__main__":
    main()
