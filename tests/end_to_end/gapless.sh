#!/usr/bin/env bash
# What encoders add in front and behind is cut off again: the length that went in comes out.
. "$(dirname "$0")/lib.sh"
mkdir "$work/in"
sox -r 44100 -n -c 2 -b 16 "$work/tone.wav" synth 123457s sine 440 vol 0.5
lame --quiet "$work/tone.wav" "$work/in/lame.mp3"
ffmpeg -v error -i "$work/tone.wav" -c:a vorbis -strict -2 "$work/in/vorbis.ogg"
ffmpeg -v error -i "$work/tone.wav" -c:a libopus "$work/in/opus.opus"
flac -s -o "$work/in/flac.flac" "$work/tone.wav"
ffmpeg -v error -i "$work/tone.wav" -c:a wavpack "$work/in/wavpack.wv"
convert --to Wave --out "$work/out" "$work"/in/*
expect_converted 5 0
for name in lame flac wavpack; do
    expect_frames "$work/out/$name.wav" 123457
done
# These two hold other lengths by nature (rate, block size): a native decoder tells which.
expect_frames "$work/out/vorbis.wav" "$(frames "$work/in/vorbis.ogg")"
expect_frames "$work/out/opus.wav" "$(frames "$work/in/opus.opus")"

convert --to 'mp3 (Lame)' --out "$work/mp3" "$work/tone.wav"
expect_converted 1 0
expect_frames "$work/mp3/tone.mp3" 123457
[ "$(ffprobe -v error -show_entries stream=codec_name -of csv=p=0 "$work/mp3/tone.mp3" | head -n 1)" = mp3 ] ||
    fail "the output is no mp3"
finish
