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
