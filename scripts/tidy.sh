#!/usr/bin/env bash
# clang-format and clang-tidy over our sources. Without arguments: all; else the files named.
# Needs the compile commands of a Windows build (./build.sh).
set -uo pipefail
cd "$(dirname "$0")/.."
files=("$@")
[ ${#files[@]} -gt 0 ] || mapfile -t files < <(git ls-files 'src/*.cpp' 'worker/*.cpp' 'plugins/*.cpp')
result=0
git ls-files '*.cpp' '*.h' | xargs clang-format-14 --dry-run -Werror || result=1

# clang-tidy reads mingw's own C++ library in place of the one clang would look for.
include=$(x86_64-w64-mingw32-g++-posix -print-file-name=include/c++)
[ -d "$include" ] || include=$(x86_64-w64-mingw32-g++-posix -print-file-name=include)/c++
extra=(--extra-arg-before=--target=x86_64-w64-windows-gnu --extra-arg=-nostdinc++
    --extra-arg=-isystem"$include" --extra-arg=-isystem"$include/x86_64-w64-mingw32"
    --extra-arg=-isystem"$include/backward" --extra-arg=-Wno-unknown-warning-option)
printf '%s\0' "${files[@]}" |
    xargs -0 -n 4 -P 2 clang-tidy-14 -p build/windows --quiet "${extra[@]}" 2>/dev/null || result=1
exit $result
