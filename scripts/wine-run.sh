#!/usr/bin/env bash
# Runs one Windows program of the build under Wine; CMake uses it for tests. The display and the
# server are those of the caller (test.sh keeps one of each).
. "$(dirname "$0")/wine-env.sh"
if [ ! -e "$tm_wine/.complete" ]; then
    echo "no Wine prefix: source scripts/wine-env.sh and call tm_start_wine" >&2
    exit 98
fi
# Services that Wine starts on the way inherit the output and keep it open long after the program
# has ended: let them hold a file, not the caller's pipe.
output=$(mktemp)
trap 'rm -f "$output"' EXIT
tm_with_home wine "$@" >"$output" 2>&1 </dev/null
result=$?
cat "$output"
exit $result
