#!/usr/bin/env bash
# Sets up what is missing, builds the Windows program and leaves it, complete, in build/Tonemill/.
# Usage: ./build.sh [ninja targets...]   (more than the program, such as `all` with the tests)
set -euo pipefail
cd "$(dirname "$0")"
mkdir -p build

scripts/packages.sh
codecs=$(scripts/codecs.sh)

cmake --preset windows -DTM_CODECS="$codecs" >build/.configure.log 2>&1 ||
    { cat build/.configure.log >&2; exit 1; }
cmake --build build/windows --target program "$@" | { grep -E 'FAILED|error|warning' || true; } >&2

# As it would stand on a Windows machine: program, worker, plug-in folders, libraries, help, licences.
cmake --install build/windows --component program --prefix build/Tonemill >build/.install.log
