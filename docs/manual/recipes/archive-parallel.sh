#!/usr/bin/env bash
# archive-parallel.sh ARCHIVE [JOBS]: analyses all cells below ARCHIVE with GNU parallel, so many at a time as there are
# processors, or JOBS. A cell is a folder with a cell.LST; see rack.sh. Each cell that has been done leaves its line, exit
# status and folder, in ARCHIVE/archive.log. Cells that have a line with status 0 there are left out: give the same command
# again to go on where a run was broken off, to take in new cells, and to have those done again that failed. To have all
# done again, remove the log. The exit status is 0 if all that it has done went well.
set -euo pipefail
archive=$(cd "$1" && pwd)
jobs=${2:-100%}
cd "$(dirname "${BASH_SOURCE[0]}")"
log=$archive/archive.log
touch "$log"
export LC_ALL=C
comm -23 <(find "$archive" -name cell.LST -printf '%h\n' | sort) <(sed -n 's/^0\t//p' "$log" | sort -u) |
    parallel --jobs "$jobs" bash rack.sh {} | tee -a "$log"
