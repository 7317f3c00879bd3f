#!/usr/bin/env bash
# on_display.sh PROGRAM ARGUMENTS...: runs a test on the display that ctest has given it, and as the only one there. Each
# display has a folder for run-time files of its own, so that programs on two of them are those of two users.
#
# Without such a display, the program being run by hand, it is DISPLAY.
set -euo pipefail

given=${CTEST_RESOURCE_GROUP_0_DISPLAYS:-}
if [ -n "$given" ]; then
    number=${given#id:}
    number=${number%%,*}
    export DISPLAY=:$number XDG_RUNTIME_DIR=$HALVERN_RUNTIME_DIRS/$number
    exec "$@"
fi
case " $* " in
    *" --gtest_list_tests "*) exec "$@" ;;
esac
exec flock "/tmp/halvern-tests-on-display${DISPLAY:-}" "$@"
