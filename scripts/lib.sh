# shellcheck shell=bash
# What the scripts share; they read it from the top folder.

# quietly WHAT COMMAND...: says what is being done, and shows the command's output only when it fails.
quietly() {
    local what=$1 log status=0
    shift
    echo "$what"
    log=$(mktemp)
    "$@" >"$log" 2>&1 || status=$?
    [ "$status" -eq 0 ] || cat "$log" >&2
    rm -f "$log"
    return "$status"
}

# build PRESET [TARGET...]: the build's progress is one line on a terminal; elsewhere only what goes wrong is shown.
build() {
    local preset=$1 options=()
    shift
    [ $# -eq 0 ] || options+=(--target "$@")
    [ -t 1 ] || options+=(-- --quiet)
    echo "building build/$preset"
    cmake --build --preset "$preset" "${options[@]}"
}

started=()

# clean_up: ends what has been started, the last first. It is waited for, so that nothing of it is left when a script's last
# line has been printed.
clean_up() {
    local process
    for process in "${started[@]}"; do
        kill "$process" 2>/dev/null || true
        wait "$process" 2>/dev/null || true
    done
    started=()
}

# start_xvfb FOLDER SCREEN [OPTION...]: an Xvfb of so many pixels on a free display, which DISPLAY is from then on. It writes
# the display's number once it can be used; its log is xvfb.log in FOLDER. The status is 1 if none comes up.
start_xvfb() {
    local folder=$1 screen=$2 number=
    shift 2
    rm -f "$folder/display" "$folder/xvfb.log"
    mkfifo "$folder/display"
    Xvfb -displayfd 3 -screen 0 "${screen}x24" -nolisten tcp "$@" 3>"$folder/display" >"$folder/xvfb.log" 2>&1 &
    started=($! "${started[@]}")
    read -r -t 20 number <"$folder/display" || true
    rm "$folder/display"
    [ -n "$number" ] || return 1
    export DISPLAY=:$number
}
