#!/bin/bash
# Makes the archive of sources that is offered with the program: the commit's own tree, and the source
# packages of the libraries in exactly the versions that were built. Needs the network.
# usage: collect-sources.sh <folder of the codec libraries> <archive> <folder in it>; SOURCE_DATE_EPOCH is set
set -euo pipefail
codecs=$1 archive=$2 name=$3
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

mkdir -p "$work/$name/libraries" "$work/$name/tonemill" "$work/downloads"
git -C "$root" archive HEAD | tar -x -C "$work/$name/tonemill"
list=$root/scripts/codecs/sources.txt
bash "$root/scripts/codecs/fetch.sh" "$work/downloads" "$list" >"$work/fetch.log" 2>&1 ||
    { tail -n 30 "$work/fetch.log" >&2; exit 1; }
while read -r _ package _; do
    built=$(sed -n "s/^$package //p" "$codecs/VERSIONS")
    offered=$(sed -nE 's/^Version: //p' "$work/downloads/$package"_*.dsc | head -n 1)
    if [ "$built" != "$offered" ]; then
        echo "collect-sources: $package was built in $built, apt offers $offered: delete the cache of libraries" >&2
        exit 1
    fi
    cp "$work/downloads/$package"_*.dsc "$work/downloads/$package"_*.tar.* "$work/$name/libraries"
done < <(grep -v '^#' "$list")
chmod -R u=rwX,go=rX "$work/$name"
tar -C "$work" --sort=name --mtime="@$SOURCE_DATE_EPOCH" --owner=0 --group=0 --numeric-owner --format=gnu \
    -cf "$archive" "$name"
