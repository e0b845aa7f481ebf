#!/usr/bin/env bash
# ALAC and AAC in M4A: the very samples, or their very number; speakers in order; every tag.
. "$(dirname "$0")/lib.sh"
mkdir "$work/in"
make() { # NAME RATE CODEC CHANNELS SECONDS
    local tones=() i
    for ((i = 1; i <= $4; ++i)); do
        tones+=("0.3*sin($((i * 600))*2*PI*t)+0.1*random($i)")
    done
    ffmpeg -v error -f lavfi -i "aevalsrc=$(IFS='|'; echo "${tones[*]}"):s=$2:d=$5" -c:a "$3" -y "$work/in/$1.wav"
}
make u8 8000 pcm_u8 1 0.500125
make s16 44100 pcm_s16le 2 3.0001
make s24 192000 pcm_s24le 1 0.3
make six 48000 pcm_s24le 6 0.2
make eight 48000 pcm_s16le 8 0.2
make one 44100 pcm_s16le 2 0.00002
convert --to ALAC --out "$work/alac" "$work"/in/*
expect_converted 6 0
for source in "$work"/in/*; do
    output="$work/alac/$(basename "${source%.*}").m4a"
    # 8 bit stand in the upper half of 16
    expect_same_audio "$source" "$output"
    [ "$(ffprobe -v error -show_entries stream=codec_name -of csv=p=0 "$output")" = alac ] || fail "$output is no ALAC"
done
expect_nothing_else "$work/alac" 6
make wide 48000 pcm_s32le 2 0.3
convert --to ALAC --out "$work/wide" "$work/in/wide.wav"
expect_converted 1 0
depth=$(ffprobe -v error -show_entries stream=bits_per_raw_sample -of csv=p=0 "$work/wide/wide.m4a")
[ "$depth" = 24 ] || fail "32 bit became $depth"

ffmpeg -v error -f lavfi -i testsrc=s=300x300 -frames:v 1 "$work/cover.jpg"
ffmpeg -v error -f lavfi -i testsrc=s=200x200 -frames:v 1 "$work/back.png"
flac -s -o "$work/tagged.flac" -T "TITLE=Café – 日本" -T "ARTIST=Erste" -T "ARTIST=Zweite" -T "ALBUM=Alb: um" \
    -T "TRACKNUMBER=3" -T "TRACKTOTAL=12" -T "DISCNUMBER=1" -T "ALBUMARTIST=Alle" -T "DATE=1999-05-01" \
    -T "COMPOSER=Någon" -T "GENRE=Jazz" -T "GENRE=Pop" -T "BPM=120.5" -T "COMPILATION=1" -T "ISRC=DE1" \
    -T $'COMMENT=one\ntwo' -T "LYRICS=la" -T "OWN KEY=own" -T "OWN KEY=second" -T "ORGANIZATION=House" \
    -T "REPLAYGAIN_TRACK_GAIN=-3.21 dB" --picture="4|image/png|Back||$work/back.png" \
    --picture="3|image/jpeg|Front||$work/cover.jpg" "$work/in/s16.wav"
metaflac --export-tags-to=- "$work/tagged.flac" | sort >"$work/tags.txt"

for encoder in ALAC; do
    convert --to "$encoder" --out "$work/tags-$encoder" "$work/tagged.flac"
    expect_converted 1 0
    file="$work/tags-$encoder/tagged.m4a"
    expect_tag "$file" title "Café – 日本"
    expect_tag "$file" artist Erste # ffprobe shows the first of several; the way back shows both
    expect_tag "$file" album "Alb: um"
    expect_tag "$file" album_artist Alle
    expect_tag "$file" track 3/12
    expect_tag "$file" date 1999-05-01
    expect_tag "$file" compilation 1
    expect_tag "$file" LABEL House
    ffmpeg -v error -i "$file" -map 0:v:0 -c copy "$work/$encoder.jpg" && cmp "$work/cover.jpg" "$work/$encoder.jpg" ||
        fail "the cover changed on its way to $encoder"
    convert --to FLAC --out "$work/back-$encoder" "$file"
    expect_converted 1 0
    metaflac --export-tags-to=- "$work/back-$encoder/tagged.flac" | sort | diff "$work/tags.txt" - ||
        fail "tags changed on their way through $encoder"
done
finish
