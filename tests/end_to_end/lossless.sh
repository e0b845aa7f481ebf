#!/usr/bin/env bash
# Lossless outputs hold the very samples of their sources: depths, rates, channels, odd lengths.
. "$(dirname "$0")/lib.sh"
mkdir "$work/in"
make() { ffmpeg -v error -f lavfi -i "aevalsrc=$3:s=$2:d=$4" -c:a $5 -y "$work/in/$1"; }
stereo='0.5*sin(2*PI*440*t)|0.3*sin(2*PI*1000*t)+0.1*random(0)'
make s16.wav 44100 "$stereo" 3.0001 pcm_s16le
make s24.wav 96000 "$stereo" 2 pcm_s24le
make u8.wav 22050 '0.5*sin(2*PI*300*t)' 1 pcm_u8
make short.wav 8000 '0.1' 0.000125 pcm_s16le
make six.wav 48000 '0.1*sin(100*t)|0.2*sin(200*t)|0.3*sin(300*t)|0.05*sin(400*t)|0.1*sin(500*t)|0.2*random(1)' 1 pcm_s16le
make aiff.aiff 44100 "$stereo" 1 pcm_s16be
make alac.m4a 44100 "$stereo" 2 alac
make tta.tta 44100 "$stereo" 2 tta
make wavpack.wv 44100 "$stereo" 2 'wavpack -sample_fmt s16p'
cp /usr/share/sounds/alsa/Front_Center.wav "$work/in/speech.wav"

convert --to FLAC --out "$work/flac" "$work"/in/*
expect_converted 10 0
for source in "$work"/in/*; do
    name=$(basename "${source%.*}")
    flac -ts "$work/flac/$name.flac" || fail "flac refuses $name"
    expect_same_audio "$source" "$work/flac/$name.flac"
done
expect_nothing_else "$work/flac" 10

# Back again, and the samples that only a wave file holds.
make s32.wav 48000 "$stereo" 1 pcm_s32le
make float.wav 48000 '1.5*sin(2*PI*440*t)|0.3*sin(2*PI*1000*t)' 1 pcm_f32le
convert --to Wave --out "$work/wave" "$work"/flac/*.flac "$work/in/s32.wav" "$work/in/float.wav"
expect_converted 12 0
for output in "$work"/wave/*; do
    name=$(basename "${output%.*}")
    source=$(ls "$work/in/$name".* | head -n 1)
    expect_same_audio "$source" "$output"
    sox "$output" -n stat >/dev/null 2>"$work/sox.log" || { fail "sox refuses $output"; cat "$work/sox.log"; }
done
# 32 bits through FLAC, which ffmpeg can't read: there and back again.
convert --to FLAC --out "$work/wide" "$work/in/s32.wav"
expect_converted 1 0
flac -ts "$work/wide/s32.flac" || fail "flac refuses 32 bits"
convert --to Wave --out "$work/wide" "$work/wide/s32.flac"
expect_same_audio "$work/in/s32.wav" "$work/wide/s32.wav"
[ "$(ffprobe -v error -show_entries stream=codec_name -of csv=p=0 "$work/wave/float.wav")" = pcm_f32le ] ||
    fail "float audio did not stay float"
finish
