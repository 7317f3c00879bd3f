#!/usr/bin/env bash
# programs.sh REPLAY SIMULATE MODULE MAKE_DATA: what the programs do when calls of the system fail. MODULE makes them
# fail in the programs as they are built for users.
set -u
replay=$1 simulate=$2 module=$3 make_data=$4
# No dot in the path: the generator of list files takes a path apart around its first one.
folder=$(realpath "$(mktemp -d -t halvern-faults-XXXXXX)")
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/data" "$folder/out"
cd "$folder/data" || exit 1
"$make_data" || exit 1
cd "$folder" || exit 1
# What is loaded first is a list with blanks between its names.
ln -s "$module" failing.so
failures=0 faults=0

complain() {
    failures=$((failures + 1))
    printf 'FAILED: %s\n' "$*"
}

# check WHAT EXPECTED GOT
check() {
    [[ $3 == "$2" ]] || complain "$1"$'\n'"  expected: $2"$'\n'"  got:      $3"
}

# run COMMAND...: leaves its status in $status, its outputs in $out and $err.
run() {
    status=0
    out=$("$@" 2>"$folder/stderr") || status=$?
    err=$(<"$folder/stderr")
}

# run_failing BELOW CALL ERROR HOW COMMAND...: the same while calls fail. Leaves their numbers in $calls and $failed.
run_failing() {
    local below=$1 call=$2 error=$3 how=$4
    shift 4
    run env FAULTS_BELOW="$below" FAULTS_CALL="$call" FAULTS_ERROR="$error" FAULTS_HOW="$how" \
        FAULTS_REPORT="$folder/counted" LD_PRELOAD=./failing.so "$@"
    read -r calls failed <"$folder/counted"
    faults=$((faults + failed))
}

# is_prefix FILE WHOLE
is_prefix() {
    cmp -s -n "$(stat -c %s "$1")" "$1" "$2"
}

ENOSPC=28 EIO=5

# --- Output that nobody takes.
for ((i = 0; i < 400; i++)); do echo "print menus"; done >long.script
"$replay" long.script 2>stderr | head -n 1 >/dev/null
check "a pipe whose reader has gone: status" 1 "${PIPESTATUS[0]}"
[[ $(<stderr) == "long.script:"*": the output can't be written" ]] || complain "a pipe without a reader: $(<stderr)"
for program in "$replay" "$simulate"; do
    for option in --help --version; do
        run bash -c '"$0" "$1" >/dev/full' "$program" "$option"
        check "$option on a full disk: status" 1 "$status"
        check "$option on a full disk" "$(basename "$program"): the output can't be written" "$err"
    done
done

# --- Files without an end, and files that can't be read.
run "$replay" /dev/zero
check "an endless script" "2 /dev/zero: the script is too long" "$status $err"
run "$replay" /proc/self/mem
check "an unreadable script" "2 /proc/self/mem: Input/output error" "$status $err"
run "$simulate" --output sim /dev/zero
check "endless parameters" "2 halvern-simulate: /dev/zero: it is too long for a parameter file" "$status $err"
run "$simulate" --output sim /proc/self/mem
check "unreadable parameters" "2 halvern-simulate: /proc/self/mem: Input/output error" "$status $err"
printf 'click GetListNow\nchoose /proc/self/mem\nprint clipboard\n' >unreadable.script
run "$replay" unreadable.script
check "an unreadable list" "0 clipboard: empty" "$status $out"

# --- A limit on the size of files: a signal unless the program takes it as an error.
printf 'click GetListNow\nchoose data/absorbance/all.LST\nclick RawDataOut\nchoose "%s"\nprint clipboard\n' \
    "$folder/out/table.txt" >table.script
[ -f data/absorbance/all.LST ] || sed -i 's|data/absorbance/|data/|' table.script
list=$(sed -n 's/^choose \(.*LST\)$/\1/p' table.script)
[ -f "$list" ] || { echo "no list file: $list"; ls -R data | head; exit 1; }
run "$replay" table.script
check "the table" "0 clipboard: empty" "$status $out"
cp out/table.txt whole.txt
(
    ulimit -f 1
    "$replay" table.script >limited 2>&1
    echo $? >>limited
)
box='message style=48 title="Output File Error" text="Error in Saving Raw Data To Output File!" answer=ok'
if [ "$(stat -c %s whole.txt)" -gt 1024 ]; then
    check "a limit on the size of files" "$box"$'\nclipboard: empty\n0' "$(<limited)"
    check "size of the interrupted file" 1024 "$(stat -c %s out/table.txt)"
    is_prefix out/table.txt whole.txt || complain "the interrupted file is no part of the whole"
else
    complain "the table has no kilobyte: $(stat -c %s whole.txt)"
fi

# --- The table and the picture, by the program itself.
run_failing "$folder/out" 0 $ENOSPC refused "$replay" table.script
table_calls=$calls
for ((call = 1; call <= table_calls; call++)); do
    echo "old" >out/table.txt
    run_failing "$folder/out" $call $ENOSPC half "$replay" table.script
    check "table, call $call" "0 $box"$'\nclipboard: empty' "$status $out"
    if ((call == 1)); then
        check "old table" old "$(<out/table.txt)"
    else
        is_prefix out/table.txt whole.txt || complain "table, call $call: no part of the whole"
    fi
done
printf 'click GetListNow\nchoose %s\nclick PlotRaw\nclick PlotEmUpScottie\nrender "%s"\n' "$list" "$folder/out/plot.png" \
    >picture.script
run_failing "$folder/out" 0 $ENOSPC refused "$replay" picture.script
check "the picture" 0 "$status"
picture_calls=$calls
for ((call = 1; call <= picture_calls; call++)); do
    echo "old" >out/plot.png
    run_failing "$folder/out" $call $EIO refused "$replay" picture.script
    check "picture, call $call" "1 picture.script:5: $folder/out/plot.png can't be written: Input/output error" \
        "$status $err"
    check "old picture, call $call" old "$(<out/plot.png)"
done
check "what stands beside the picture" "plot.png table.txt" "$(ls -A out | xargs)"

# --- The list of a series: it has no failure exit, and the program ends.
first=$(head -n 1 "$list" | tr -d '\r')
series=$(dirname "$list")
list_script() {
    printf 'click MakeListNow\nclick Text3\nchoose "%s"\nclick OKMakeFile\n' "$folder/$series/$first"
    printf '%s\n' "$@"
}
list_script >first.script
list_script 'answer yes' >replace.script
list_script 'answer no' >keep.script
before=$(ls -A "$series")
run "$replay" first.script
check "the list: status" 0 "$status"
made=$(comm -13 <(echo "$before" | sort) <(ls -A "$series" | sort))
[ -n "$made" ] || { echo "no list was made: $err"; exit 1; }
mv "$series/$made" whole.LST
run_failing "$folder/$series" 0 $ENOSPC refused "$replay" first.script
list_calls=$calls
cmp -s "$series/$made" whole.LST || complain "the list is another one"
for how in refused half; do
    for ((call = 1; call <= list_calls; call++)); do
        rm -f "$series/$made"
        run_failing "$folder/$series" $call $ENOSPC $how "$replay" first.script
        check "list, call $call $how" "70 first.script:4: Run-time error '61': Disk full" "$status ${err%%$'\n'*}"
        [[ $err == *"$made"* ]] || complain "list, call $call $how: the file is not named: $err"
        [ ! -f "$series/$made" ] || is_prefix "$series/$made" whole.LST ||
            complain "list, call $call: no part of the whole"
    done
done
for ((call = 1; call <= list_calls + 1; call++)); do
    echo "old" >"$series/$made"
    run_failing "$folder/$series" $call $EIO refused "$replay" replace.script
    check "replaced list, call $call" "70 replace.script:5: Run-time error '57': Device I/O error" \
        "$status ${err%%$'\n'*}"
    ((call > 1)) || check "the old list" old "$(<"$series/$made")"
done
echo "old" >"$series/$made"
run_failing "$folder/$series" 0 $EIO refused "$replay" keep.script
check "a list that is to stay" "0 0 old" "$status $calls $(<"$series/$made")"

# --- The simulator: whole scans or none.
simulated=("$simulate" --output "$folder/sim/run" --species 'concentration:1 s:4 mass:5'
    --speed 'rpm:50000 from:600 to:900 scans:2' --cells 60)
mkdir sim
run_failing "$folder/sim" 0 $ENOSPC refused "${simulated[@]}"
check "the simulator: status" 0 "$status"
simulator_calls=$calls
mv sim/run whole
for ((call = 1; call <= simulator_calls; call++)); do
    rm -rf sim/run
    run_failing "$folder/sim" $call $ENOSPC half "${simulated[@]}"
    check "simulator, call $call: status" 1 "$status"
    [[ $err == *"halvern-simulate: $folder/sim/run"*": No space left on device" ]] ||
        complain "simulator, call $call: $err"
    for file in sim/run/*; do
        [ ! -e "$file" ] || cmp -s "$file" "whole/$(basename "$file")" ||
            complain "simulator, call $call: $file is not whole"
    done
done

# --- The folder that the program was started in has gone.
mkdir gone
echo "print clipboard" >good.script
(
    cd gone
    rmdir "$folder/gone"
    "$replay" "$folder/good.script" >"$folder/output" 2>&1
    echo $? >>"$folder/output"
)
check "a start in a folder that has gone" $'clipboard: empty\n0' "$(<output)"

echo "$faults faults: table $table_calls calls, picture $picture_calls, list $list_calls, simulator $simulator_calls"
[ "$failures" -eq 0 ]
