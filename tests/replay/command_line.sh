#!/usr/bin/env bash
# command_line.sh REPLAY: what halvern-replay does with its command line and with scripts that it can't take.
set -u
replay=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
failures=0

# expect STATUS STDOUT STDERR ARGUMENT...: both outputs whole, or up to a trailing *
expect() {
    local status=$1 stdout=$2 stderr=$3 got_stdout got_stderr got_status
    shift 3
    got_stdout=$("$replay" "$@" 2>stderr) && got_status=0 || got_status=$?
    got_stderr=$(<stderr)
    # shellcheck disable=SC2053 # the expected side is a pattern
    if [[ $got_status != "$status" || $got_stdout != $stdout || $got_stderr != $stderr ]]; then
        failures=$((failures + 1))
        printf 'halvern-replay %s\n  status %s, expected %s\n  stdout: %s\n  stderr: %s\n' \
            "$*" "$got_status" "$status" "$got_stdout" "$got_stderr"
    fi
}

printf 'print clipboard\n' >good.script
printf '# caf\351\nprint clipboard\n' >latin.script
printf 'print clipboard\nclick KeldIt\nprint clipboard\n' >bad.script
printf '\nclick Foo\n' >'-dash.script'
printf 'print report\n' >report.script
mkdir folder

expect 0 'clipboard: empty' '' good.script
expect 0 'clipboard: empty' '' "$folder/good.script"
expect 0 'clipboard: empty' '' - <good.script
expect 1 'clipboard: empty' 'bad.script:2: KeldIt is disabled' bad.script
expect 1 'clipboard: empty' '-:2: KeldIt is disabled' - <bad.script
expect 1 '' './-dash.script:2: no such control: Foo' ./-dash.script

expect 0 'usage: halvern-replay SCRIPT *  click NAME*  70 *' '' --help
expect 0 'halvern-replay 0.99.0055' '' --version

expect 2 '' 'usage: halvern-replay SCRIPT *'
expect 2 '' 'usage: halvern-replay SCRIPT *' good.script good.script
expect 2 '' 'usage: halvern-replay SCRIPT *' --verbose
expect 2 '' 'usage: halvern-replay SCRIPT *' -dash.script
expect 2 '' 'usage: halvern-replay SCRIPT *' --version good.script
expect 2 '' 'none.script: No such file or directory' none.script
expect 2 '' 'folder: Is a directory' folder
expect 2 '' 'latin.script: the script is not UTF-8' latin.script
expect 2 '' '-: the script is not UTF-8' - <latin.script

# Names can hold what commands a terminal: on standard error its bytes are told.
escape=$(printf '\033')
cp bad.script "${escape}[2J.script"
printf 'click "%s[31m"\n' "$escape" >colour.script
expect 1 'clipboard: empty' '\\x1b\[2J.script:2: KeldIt is disabled' "${escape}[2J.script"
expect 1 '' 'colour.script:1: no such control: \\x1b\[31m' colour.script
expect 2 '' '\\x1b\[0m: No such file or directory' "${escape}[0m"

# A stream that is closed is not the place for the next file.
if "$replay" - <&- 2>stderr || [ "$(<stderr)" != "-: Bad file descriptor" ]; then
    echo "no standard input: $(<stderr)"
    failures=$((failures + 1))
fi
if "$replay" report.script >&- 2>stderr || [ "$(<stderr)" != "report.script:1: the output can't be written" ]; then
    echo "no standard output: $(<stderr)"
    failures=$((failures + 1))
fi

# Two at once do not hold each other up.
"$replay" report.script >first & "$replay" report.script >second
wait $!
cmp first second || failures=$((failures + 1))

# A full disk is told, not passed over.
"$replay" report.script >/dev/full 2>stderr
if [ $? -ne 1 ] || [ "$(<stderr)" != "report.script:1: the output can't be written" ]; then
    echo "a full disk: $(<stderr)"
    failures=$((failures + 1))
fi

[ "$failures" -eq 0 ]
