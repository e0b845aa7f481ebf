#!/usr/bin/env bash
# Sets up what is missing, builds the Windows program and leaves it, complete, in build/Tonemill/.
# Usage: ./build.sh [ninja targets...]   (default: the program without the tests)
set -euo pipefail
cd "$(dirname "$0")"
mkdir -p build

scripts/packages.sh
codecs=$(scripts/codecs.sh)

cmake -S . -B build/windows -G Ninja -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/mingw64.cmake" \
    -DCMAKE_BUILD_TYPE=Release -DTM_CODECS="$codecs" >build/.configure.log 2>&1 ||
    { cat build/.configure.log >&2; exit 1; }
cmake --build build/windows --target "${@:-program}" | { grep -E 'FAILED|error|warning' || true; } >&2

# As it would stand on a Windows machine: program, worker, plug-in folders, libraries, licences.
mkdir -p build/Tonemill
cp -ru build/windows/Tonemill/. build/Tonemill/
cp -u "$codecs"/bin/*.dll build/Tonemill/
mkdir -p build/Tonemill/Help
cp -ru help/zTM build/Tonemill/Help/
mkdir -p build/Tonemill/licences
cp -ru "$codecs"/share/licences/. build/Tonemill/licences/
