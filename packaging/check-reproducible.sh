#!/bin/bash
# Builds the committed state twice, in folders of different names, without a compiler cache, and compares the
# installers, the zips and every file in them. Takes minutes. usage: packaging/check-reproducible.sh [--codecs]
#   --codecs  builds the codec libraries anew for each, too (a quarter of an hour more)
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
codecs=${1:-}
commit=$(git -C "$root" rev-parse HEAD) # others may go on meanwhile
export CCACHE_DISABLE=1 TONEMILL_CACHE=${TONEMILL_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/tonemill}
unset TM_BUILD TM_PACKAGE TM_SKIP_BUILD SOURCE_DATE_EPOCH

folders=("$work/one" "$work/another-folder/of-a-longer-name")
Package() { # FOLDER COMMAND...
    local folder=$1
    shift
    git clone -q "$root" "$folder"
    git -C "$folder" checkout -q --detach "$commit"
    if [ "$codecs" = --codecs ]; then export TONEMILL_CACHE=$folder/build/codecs; fi
    (cd "$folder" && "$@" ./package.sh)
}
Package "${folders[0]}" env
# Another time zone, home and parallelism: none may show.
Package "${folders[1]}" env TZ=Pacific/Chatham HOME="$work" LANG=C.UTF-8 CMAKE_BUILD_PARALLEL_LEVEL=1

result=0
while IFS= read -r file; do
    if cmp "${folders[0]}/build/package/$file" "${folders[1]}/build/package/$file"; then
        echo "same  $file"
    else
        result=1
    fi
done < <(cd "${folders[0]}/build/package" && find . -type f -not -name '.*' | sort)
diff <(cd "${folders[0]}/build/package" && find . | sort) <(cd "${folders[1]}/build/package" && find . | sort) || result=1
[ $result = 0 ] && echo "both builds are the same to the byte"
exit $result
