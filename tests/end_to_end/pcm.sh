#!/usr/bin/env bash
# AIFF and Wave64 hold the very samples and the tags of their sources, as other programs read them.
. "$(dirname "$0")/lib.sh"
mkdir "$work/in"
make() { # NAME RATE CODEC CHANNELS SECONDS
    local tones=() i
    for ((i = 1; i <= $4; ++i)); do
        tones+=("0.4*sin($((i * 300))*t)+0.1*random($i)")
    done
    ffmpeg -v error -f lavfi -i "aevalsrc=$(IFS='|'; echo "${tones[*]}"):s=$2:d=$5" -c:a "$3" -y "$work/in/$1.wav"
}
make u8 8000 pcm_u8 1 0.500125
make s16 44100 pcm_s16le 2 1.0001
make s24 192000 pcm_s24le 1 0.3
make s32 48000 pcm_s32le 8 0.2
make float 96000 pcm_f32le 2 0.3
make six 48000 pcm_s16le 6 0.2

for format in AIFF:aiff Wave64:w64; do
    name=${format%:*} extension=${format#*:}
    convert --to "$name" --out "$work/$extension" "$work"/in/*
    expect_converted 6 0
    for source in "$work"/in/*; do
        output="$work/$extension/$(basename "${source%.*}").$extension"
        expect_same_audio "$source" "$output"
        sox "$output" -n stat >/dev/null 2>"$work/sox.log" || { fail "sox refuses $output"; cat "$work/sox.log"; }
    done
    expect_nothing_else "$work/$extension" 6
    # Back through our own decoder.
    convert --to Wave --out "$work/$extension-back" "$work/$extension"/*
    expect_converted 6 0
    for source in "$work"/in/*; do
        expect_same_audio "$source" "$work/$extension-back/$(basename "$source")"
    done
done
codec() { ffprobe -v error -show_entries stream=codec_name -of csv=p=0 "$1"; }
[ "$(codec "$work/aiff/float.aiff")" = pcm_f32be ] || fail "float samples in AIFF: $(codec "$work/aiff/float.aiff")"
[ "$(codec "$work/w64/float.w64")" = pcm_f32le ] || fail "float samples in Wave64"
for file in "$work/aiff/six.aiff" "$work/w64/six.w64"; do
    layout=$(ffprobe -v error -show_entries stream=channel_layout -of csv=p=0 "$file")
    [ "$layout" = 5.1 ] || fail "speakers of $file: $layout"
done

ffmpeg -v error -f lavfi -i testsrc=s=300x300 -frames:v 1 "$work/cover.jpg"
flac -s -o "$work/tagged.flac" -T "TITLE=Café – 日本" -T "ARTIST=Erste" -T "ARTIST=Zweite" -T "ALBUM=Alb: um" \
    -T "TRACKNUMBER=3" -T "TRACKTOTAL=12" -T "ALBUMARTIST=Alle" --picture="3|image/jpeg|Front||$work/cover.jpg" \
    "$work/in/s16.wav"
for name in AIFF Wave64; do
    convert --to "$name" --out "$work/tags" "$work/tagged.flac"
    expect_converted 1 0
done
for file in "$work/tags/tagged.aiff" "$work/tags/tagged.w64"; do
    expect_tag "$file" title "Café – 日本"
    expect_tag "$file" album "Alb: um"
    expect_tag "$file" track 3/12
done
expect_tag "$work/tags/tagged.w64" artist "Erste; Zweite"
expect_tag "$work/tags/tagged.aiff" album_artist Alle
ffmpeg -v error -i "$work/tags/tagged.aiff" -map 0:v -c copy "$work/back.jpg" && cmp "$work/cover.jpg" "$work/back.jpg" ||
    fail "the cover changed on its way to AIFF"
finish
