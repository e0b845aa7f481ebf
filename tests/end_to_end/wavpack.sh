#!/usr/bin/env bash
# WavPack keeps every kind of sample bit by bit, as its own unpacker and ffmpeg read it, with all tags.
. "$(dirname "$0")/lib.sh"
mkdir "$work/in"
make() { ffmpeg -v error -f lavfi -i "aevalsrc=$3:s=$2:d=$4" -c:a "$5" -y "$work/in/$1.wav"; }
stereo='0.5*sin(2*PI*440*t)|0.3*sin(2*PI*1000*t)+0.1*random(0)'
make s16 44100 "$stereo" 3.0001 pcm_s16le
make s24 96000 "$stereo" 2 pcm_s24le
make s32 48000 "$stereo" 1 pcm_s32le
make u8 22050 '0.5*sin(2*PI*300*t)' 1 pcm_u8
make float 48000 '1.5*sin(2*PI*440*t)|0.3*sin(2*PI*1000*t)' 1 pcm_f32le
make short 8000 '0.1' 0.000125 pcm_s16le
make six 48000 '0.1*sin(100*t)|0.2*sin(200*t)|0.3*sin(300*t)|0.05*sin(400*t)|0.1*sin(500*t)|0.2*random(1)' 1 pcm_s16le
ffmpeg -v error -f lavfi -i testsrc=s=300x300 -frames:v 1 "$work/cover.jpg"
flac -s -o "$work/in/tags.flac" -T "TITLE=Café – 日本" -T "ARTIST=Erste" -T "ARTIST=Zweite" -T "TRACKNUMBER=3" \
    -T "TRACKTOTAL=12" -T "Own Key=x" --picture="3|image/jpeg|Front||$work/cover.jpg" "$work/in/s16.wav"
for settings in '' '-mode="fast" -verify' '-mode="high" -extra="2"' '-mode="veryhigh" -verify'; do
    convert --to WavPack --settings "$settings" --out "$work/out" "$work"/in/*
    expect_converted 8 0
    for source in "$work"/in/*; do
        name=$(basename "${source%.*}")
        expect_same_audio "$source" "$work/out/$name.wv"
        wvunpack -q -y -m -w "$work/out/$name.wv" -o "$work/unpacked.wav" >"$work/wvunpack.log" || fail "wvunpack finds another md5 in $name"
        expect_same_audio "$source" "$work/unpacked.wav"
        wvunpack -s "$work/out/$name.wv" 2>&1 | grep "original md5: *[0-9a-f]\{32\}" >/dev/null || fail "no md5 in $name"
    done
done
for row in "Title=Café – 日本" Track=3/12 "own key=x"; do
    [ "$(wvunpack -q -x "${row%%=*}" "$work/out/tags.wv")" = "${row#*=}" ] || fail "${row%%=*} is not ${row#*=}"
done
grep -aqP 'Artist\0Erste\0Zweite' "$work/out/tags.wv" || fail "the artists are not two values" # wvunpack shows one
ffmpeg -v error -i "$work/out/tags.wv" -map 0:v:0 -c copy -f image2 "$work/back.jpg"
cmp "$work/cover.jpg" "$work/back.jpg" || fail "the cover changed on its way"
# Back through our own reader.
convert --to FLAC --out "$work/flac" "$work/out/tags.wv"
expect_converted 1 0
expect_same_audio "$work/in/s16.wav" "$work/flac/tags.flac"
[ "$(metaflac --show-tag=ARTIST "$work/flac/tags.flac" | tr '\n' ' ')" = "ARTIST=Erste ARTIST=Zweite " ] ||
    fail "artists: $(metaflac --show-tag=ARTIST "$work/flac/tags.flac")"
finish
