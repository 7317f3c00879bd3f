#!/usr/bin/env bash
# archive-parallel.sh ARCHIVE [JOBS]: analyses all cells below ARCHIVE with GNU parallel, so many at a time as there are
# processors, or JOBS. A cell is a folder with a cell.LST; see rack.sh. The log, with times and exit statuses, is
# archive.log in ARCHIVE. A run that was broken off goes on where it was: give the same command again. For a new run, and
# to have cells done again that failed, remove the log.
set -euo pipefail
archive=$(cd "$1" && pwd)
jobs=${2:-100%}
cd "$(dirname "${BASH_SOURCE[0]}")"
find "$archive" -name cell.LST -printf '%h\0' | sort -z |
    parallel --null --jobs "$jobs" --keep-order --resume --joblog "$archive/archive.log" bash rack.sh {}
