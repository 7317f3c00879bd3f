#!/usr/bin/env bash
# run_script.sh REPLAY MAKE_DATA SCRIPT: plays SCRIPT, NAME.script, in a folder of its own that MAKE_DATA has filled, and
# compares what it prints with NAME.stdout, NAME.stderr (if there is none, nothing) and NAME.status (if there is none, 0).
# In all of them @DIR@ stands for the folder. There is no display and no home, as on a machine that works a night through.
set -u
replay=$1 make_data=$2 script=$3
expected=${script%.script}
folder=$(realpath "$(mktemp -d)")
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/work" "$folder/got" "$folder/wanted"
cd "$folder/work" || exit 1
"$make_data" || exit 1

# The folder's name as sed takes it, in a pattern and as what comes in its place.
dir=$(sed 's/[][\.*^$|&]/\\&/g' <<<"$folder/work")
name=$(basename "$script")
sed "s|@DIR@|$dir|g" "$script" >"$name"
env -u HOME -u DISPLAY -u WAYLAND_DISPLAY -u XDG_RUNTIME_DIR "$replay" "$name" >../got/stdout 2>../got/stderr
echo $? >../got/status

cd "$folder" || exit 1
sed -i "s|$dir|@DIR@|g" got/stdout got/stderr
echo 0 >wanted/status
: >wanted/stderr
for stream in stdout stderr status; do
    if [ -f "$expected.$stream" ]; then cp "$expected.$stream" wanted/$stream; fi
done
[ -f wanted/stdout ] || { echo "$expected.stdout is missing"; exit 1; }
diff -u -a wanted got
