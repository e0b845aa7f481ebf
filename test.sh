#!/usr/bin/env bash
# Builds and runs every test: checks of the sources, the portable code natively under ASan and
# UBSan, the Windows build under Wine, and real conversions end to end.
# Usage: ./test.sh [ctest arguments, such as -R XString]
set -euo pipefail
cd "$(dirname "$0")"
mkdir -p build
started=$(date +%s)
say() { printf '== %s (%d s)\n' "$1" $(($(date +%s) - started)); }

say "building the Windows program and its tests"
./build.sh all
say "checking the sources"
scripts/lint.sh
. scripts/wine-env.sh
say "building the portable code natively"
cmake --preset native >build/.configure-native.log 2>&1 ||
    { cat build/.configure-native.log >&2; exit 1; }
# Fixed addresses serve the sanitizers, too: where vm.mmap_rnd_bits is 32, some of their starts fail.
$tm_fixed cmake --build build/native | { grep -E 'FAILED|error|warning' || true; } >&2

result=0
say "native tests under ASan and UBSan"
$tm_fixed ctest --test-dir build/native --output-on-failure --no-tests=error -j2 "$@" || result=1

tm_start_wine
trap tm_stop_wine EXIT
say "Windows tests under Wine"
ctest --test-dir build/windows --output-on-failure --no-tests=error -j2 "$@" || result=1
say "done"
exit $result
