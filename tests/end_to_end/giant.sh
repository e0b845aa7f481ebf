#!/usr/bin/env bash
# Audio beyond 4 GB, read and written. It takes minutes and 5 GB of disk, so that test.sh leaves it out.
# Usage: giant.sh WORKER_FARM
. "$(dirname "$0")/farm.sh"
export TM_FARM_SECONDS=1800
little() { # NUMBER BYTES
    local i
    for ((i = 0; i < $2; ++i)); do printf "\\x$(printf %02x $((($1 >> (8 * i)) & 255)))"; done
}
# Silence of 4.5 GB that takes no disk, and behind it a recording: 32 bit, two channels, 192 kHz.
mark=/usr/share/sounds/alsa/Front_Center.wav
sox -D "$mark" -t raw -e signed -b 32 -c 2 -r 192000 "$work/mark.raw"
marked=$(stat -c %s "$work/mark.raw")
data=$((4500000000 / 8 * 8 + marked)) total=$((data / 8))
format() { printf 'fmt '; little 16 4; little 1 2; little 2 2; little 192000 4; little 1536000 4; little 8 2; little 32 2; }
{
    printf RF64; little 4294967295 4; printf WAVEds64; little 28 4
    little $((data + 72)) 8; little $data 8; little $total 8; little 0 4
    format; printf data; little 4294967295 4
} >"$work/rf64.wav"
# Programs that know no such sizes write them modulo 4 GB, or leave what they began with.
for size in $((data % 4294967296)) 4294967295; do
    { printf RIFF; little $(((size + 36) % 4294967296)) 4; printf WAVE; format; printf data; little "$size" 4; } >"$work/riff$size.wav"
done
for file in "$work"/r*.wav; do
    truncate -s $(($(stat -c %s "$file") + data - marked)) "$file"
    cat "$work/mark.raw" >>"$file"
done
is_marked() { tail -c "$marked" | cmp - "$work/mark.raw"; } # stdin ends in the recording
for file in "$work"/r*.wav; do
    name=$(basename "$file")
    run_farm FLAC "$work/flac" 0 0 "$file"
    awk -F '\t' '{print $1, $3 " ms", $5, $6}' "$work/flac/rows.txt"
    flac=$work/flac/written/$name.flac
    [ "$(metaflac --show-total-samples "$flac")" = "$total" ] || fail "$name: $(metaflac --show-total-samples "$flac") frames in FLAC, not $total"
    flac -dcs --force-raw-format --endian=little --sign=signed --skip=$((total - marked / 8)) "$flac" |
        is_marked || fail "$name in FLAC does not end in the recording"
    rm -rf "$work/flac"
done
run_farm Wave "$work/wave" 0 0 "$work/rf64.wav"
awk -F '\t' '{print $1, $3 " ms", $5, $6}' "$work/wave/rows.txt"
output=$work/wave/written/rf64.wav.wav
[ "$(head -c 4 "$output")" = RF64 ] || fail "the Wave file beyond 4 GB is no RF64"
[ "$(soxi -s "$output")" = "$total" ] || fail "sox sees $(soxi -s "$output") frames, not $total"
ffmpeg -nostdin -v error -i "$output" -f s32le - | tee >(wc -c >"$work/count") | is_marked ||
    fail 'the Wave file does not end in the recording'
[ "$(cat "$work/count")" = "$data" ] || fail "ffmpeg decodes $(cat "$work/count") bytes, not $data"
finish
