#!/bin/bash
# Provides the cross-compiled codec libraries: builds them once per machine, then finds them in the cache.
# usage: codecs.sh     prints the prefix (include/ lib/ bin/ share/licences/ VERSIONS) as its only stdout line
# The cache keeps each library (libraries/<name>-<key>) and the joined prefixes (codecs-<key>): a changed recipe
# rebuilds its own library. Nothing old is deleted, since builds may be using it.
# Environment: TONEMILL_CACHE, the cache's folder; TONEMILL_JOBS, parallel compilations.
set -euo pipefail
scripts=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
cache=$(realpath -m "${TONEMILL_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/tonemill}")

"$scripts/packages.sh" codecs

recipes=$scripts/codecs

# The installed packages that compile or get compiled in.
Tools() {
    dpkg-query -W -f '${Package} ${Version}\n' gcc-mingw-w64-x86-64-win32 gcc-mingw-w64-x86-64-posix \
        mingw-w64-x86-64-dev libz-mingw-w64-dev libutfcpp-dev
}

# The recipes with the versions they pin, and the tools: all known without network. Which point release apt
# gave is written to VERSIONS; a newer one is taken when the cache is deleted.
Key() {
    {
        cd "$recipes"
        sha256sum assemble.sh build.sh sources.txt toolchain.cmake recipes/*
        Tools
    } | sha256sum | cut -c 1-16
}

# LibraryKey <library>: what its build alone depends on.
LibraryKey() {
    local files=("$recipes"/recipes/"$1".sh "$recipes"/recipes/"$1"-*.sh)
    [ -f "${files[1]}" ] || files=("${files[0]}")
    {
        cat "$recipes"/build.sh "$recipes"/toolchain.cmake "${files[@]}"
        grep "^$1 " "$recipes/sources.txt"
        echo "$tools"
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
built=$cache/libraries

# One builder for the whole cache, since downloads are shared; whoever waited finds the work done.
exec 9>"$cache/codecs.lock"
flock -n 9 || { echo "codecs: waiting for another build" >&2; flock 9; }
[ ! -f "$prefix/.complete" ] || Finish

# what broken builds left, of whatever recipe
rm -rf "$prefix" "$cache"/codecs-*.building "$logs"
mkdir -p "$work" "$logs" "$cache/downloads" "$built"

# Failed <what> <log>
Failed() {
    echo "codecs: $1 failed, the end of $2:" >&2
    tail -n 30 "$2" >&2
    exit 1
}

# a change to one recipe leaves the other libraries as they are
tools=$(Tools)
folders=() missing=()
for library in $(awk '!/^#/ && !seen[$1]++ {print $1}' "$recipes/sources.txt"); do
    libraryKey=$(LibraryKey "$library")
    folders+=("$built/$library-$libraryKey")
    [ -d "${folders[-1]}" ] || missing+=("$library:$libraryKey")
done

if [ "${#missing[@]}" -gt 0 ]; then
    started=$(date +%s)
    echo "codecs: fetching sources" >&2
    printf '^%s \n' "${missing[@]%%:*}" >"$work/patterns"
    grep -f "$work/patterns" "$recipes/sources.txt" >"$work/sources.txt"
    bash "$recipes/fetch.sh" "$cache/downloads" "$work/sources.txt" >"$logs/fetch.log" 2>&1 9>&- ||
        Failed fetching "$logs/fetch.log"
    echo "codecs: fetched in $(($(date +%s) - started)) s" >&2

    # a caller's own flags are meant for the program
    unset CC CXX CPPFLAGS CFLAGS CXXFLAGS LDFLAGS MAKEFLAGS MAKELEVEL DESTDIR
    # two at a time: the configure steps of one leave a core idle, the compilers of both fill the machine
    printf '%s\n' "${missing[@]}" |
        xargs -P 2 -n 1 bash "$recipes/build.sh" "$cache/downloads" "$work" "$logs" "$built" 9>&-
fi

bash "$recipes/assemble.sh" "$work/stage" "${folders[@]}" >"$logs/assemble.log" 2>&1 ||
    Failed assembling "$logs/assemble.log"
date -u +%Y-%m-%dT%H:%M:%SZ >"$work/stage/.complete"
mv "$work/stage" "$prefix"
rm -rf "$work"
Finish
