# What the end-to-end tests share. Outputs are examined by tools that are not ours.
# A failed check names itself; finish ends the script with the number of them.
set -uo pipefail
export LC_ALL=C.UTF-8 # lengths of names count characters
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

fail() {
    printf 'FAILED: %s\n' "$*"
    failures=$((failures + 1))
}
finish() {
    printf '%d checks failed\n' "$failures"
    [ "$failures" = 0 ]
    exit
}
convert() { "$root/convert.sh" "$@" >"$work/convert.log" 2>&1; }
expect_converted() { # NUMBER FAILED
    grep -qx "$1 converted, $2 failed" "$work/convert.log" ||
        { fail "expected $1 converted, $2 failed"; cat "$work/convert.log"; }
}
# The decoded audio as raw 32-bit samples, hashed: equal for equal audio.
pcm_hash() { ffmpeg -v error -i "$1" -map 0:a:0 -f s32le - | md5sum; }
frames() { ffmpeg -v error -i "$1" -map 0:a:0 -f s16le -ac 1 - | wc -c | awk '{print $1 / 2}'; }
expect_same_audio() {
    [ "$(pcm_hash "$1")" = "$(pcm_hash "$2")" ] || fail "audio of $2 differs from $1"
}
expect_frames() { # FILE FRAMES
    [ "$(frames "$1")" = "$2" ] || fail "$1 has $(frames "$1") frames, not $2"
}
tag() { ffprobe -v error -show_entries "format_tags=$2" -of default=nw=1:nk=1 "$1" | head -n 1; }
expect_tag() { # FILE KEY VALUE
    [ "$(tag "$1" "$2")" = "$3" ] || fail "$2 of $1 is '$(tag "$1" "$2")', not '$3'"
}
expect_nothing_else() { # FOLDER NUMBER: no temporary file is left beside the outputs
    [ "$(find "$1" -type f | wc -l)" = "$2" ] || { fail "$1 should hold $2 files"; find "$1" -type f; }
}
