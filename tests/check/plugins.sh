#!/usr/bin/env bash
# Every plug-in of the program folder keeps the contract. The decoder gets samples that an outside
# encoder has written.
set -uo pipefail
export LC_ALL=C.UTF-8
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
program=$(cd "${1:?program folder}" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

source=(-f lavfi -i 'sine=440:duration=1.5' -metadata title=Title -metadata artist=Artist)
while read -r name options; do
    # shellcheck disable=SC2086
    ffmpeg -v error "${source[@]}" $options "$work/$name" </dev/null || exit 2
done <<'SAMPLES'
one.wav -ac 2
two.wav -c:a pcm_f32le
one.flac -ar 48000 -sample_fmt s32
one.aiff -ac 1
one.mp3 -b:a 128k
one.ogg -c:a libvorbis
one.opus -c:a libopus -ac 2
one.m4a -c:a aac -ac 2
two.m4a -c:a alac
one.wv -c:a wavpack
SAMPLES

check() { # LIBRARY: what it told, without what is well; the first line last, so that outputs don't mix
    local log samples=()
    case $1 in *decoder/*) samples=("$work"/*.*) ;; esac
    log=$("$root/scripts/wine-run.sh" "$program/sdk/ZtCheck.exe" "$1" "${samples[@]}")
    local result=$?
    printf '%s\n' "$log" | grep -v '^ok ' | sed "s|^Checking .*|$(basename "$1"): exit $result|"
    return $result
}
export -f check
export root program work
count=$(find "$program"/{decoder,encoder,DSPs} -name '*.dll' | wc -l)
[ "$count" -ge 12 ] || { echo "only $count plug-ins in $program"; exit 2; }
find "$program"/{decoder,encoder,DSPs} -name '*.dll' -print0 | xargs -0 -P 2 -I{} bash -c 'check "$1"' - {}
