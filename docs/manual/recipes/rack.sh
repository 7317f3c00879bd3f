#!/usr/bin/env bash
# rack.sh FOLDER...: analyses one cell after another. Each FOLDER holds the scans of a cell and their list, cell.LST. Its
# analysis is its own cell.session, or else the one-cell.session beside this script. What the analysis prints comes to lie in
# the folder as cell.out, complaints as cell.err. One line for each folder; the exit status is 1 if any went wrong.
set -uo pipefail
replay=${HALVERN_REPLAY:-halvern-replay}
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
status=0
for folder in "$@"; do
    (
        cd "$folder" || exit 2
        session=$here/one-cell.session
        [ ! -f cell.session ] || session=cell.session
        "$replay" "$session" >cell.out 2>cell.err
    )
    code=$?
    printf '%s\t%s\n' "$code" "$folder"
    [ "$code" -eq 0 ] || status=1
done
exit "$status"
