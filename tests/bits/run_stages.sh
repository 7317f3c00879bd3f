#!/usr/bin/env bash
# run_stages.sh SIMULATE STAGES FOLDER SAMPLE: has SIMULATE write the scans of a sample into FOLDER, STAGES run its session
# there, and compares what that prints with expected-SAMPLE.txt beside this script.
set -euo pipefail
simulate=$1 stages=$2 folder=$3 sample=$4
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

rm -rf "$folder"
mkdir -p "$folder"
"$simulate" "$here/../../samples/$sample.parameters" --output "$folder" >"$folder/simulate.out"
cd "$folder"
"$stages" "$here/$sample.session" >stages.out
diff -u "$here/expected-$sample.txt" stages.out
