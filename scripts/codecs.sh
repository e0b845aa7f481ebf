#!/bin/bash
# Provides the cross-compiled codec libraries: builds them once per machine, then finds them in the cache.
# usage: codecs.sh     prints the prefix (include/ lib/ bin/ share/licences/ VERSIONS) as its only stdout line
# Environment: TONEMILL_CACHE, the cache's folder; TONEMILL_JOBS, parallel compilations.
set -euo pipefail
scripts=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
cache=$(realpath -m "${TONEMILL_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/tonemill}")

"$scripts/packages.sh" codecs

# The recipes with the versions they pin, and the installed packages that get compiled in: all known without
# network. Which point release apt gave is written to VERSIONS; a newer one is taken when the cache is deleted.
Key() {
    {
        cd "$scripts/codecs"
        sha256sum build.sh ffmpeg-components.sh sources.txt toolchain.cmake
        dpkg-query -W -f '${Package} ${Version}\n' gcc-mingw-w64-x86-64-win32 gcc-mingw-w64-x86-64-posix \
            mingw-w64-x86-64-dev libz-mingw-w64-dev libutfcpp-dev
    } | sha256sum | cut -c 1-16
}

key=$(Key)
prefix=$cache/codecs-$key

Finish() {
    echo "$prefix"
    exit 0
}

[ ! -f "$prefix/.complete" ] || Finish

mkdir -p "$cache"
logs=$cache/codecs-$key.logs
work=$cache/codecs-$key.building

# One builder for the whole cache, since downloads are shared; whoever waited finds the work done.
exec 9>"$cache/codecs.lock"
flock -n 9 || { echo "codecs: waiting for another build" >&2; flock 9; }
[ ! -f "$prefix/.complete" ] || Finish

# what broken builds left, of whatever recipe
rm -rf "$prefix" "$cache"/codecs-*.building "$logs"
mkdir -p "$work/sources" "$work/stage" "$logs" "$cache/downloads"

started=$(date +%s)
echo "codecs: fetching sources" >&2
if ! bash "$scripts/codecs/fetch.sh" "$cache/downloads" "$work/sources" "$scripts/codecs/sources.txt" \
    >"$logs/fetch.log" 2>&1 9>&-; then
    echo "codecs: fetching failed, the end of $logs/fetch.log:" >&2
    tail -n 30 "$logs/fetch.log" >&2
    exit 1
fi
echo "codecs: fetched in $(($(date +%s) - started)) s" >&2

# a caller's own flags are meant for the program
unset CC CXX CPPFLAGS CFLAGS CXXFLAGS LDFLAGS MAKEFLAGS MAKELEVEL DESTDIR
bash "$scripts/codecs/build.sh" "$work/sources" "$work/stage" "$logs" 9>&-

date -u +%Y-%m-%dT%H:%M:%SZ >"$work/stage/.complete"
mv "$work/stage" "$prefix"
rm -rf "$work"
Finish
