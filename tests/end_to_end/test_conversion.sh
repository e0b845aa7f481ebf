#!/usr/bin/env bash
# Test Conversion finds what is damaged and writes nothing, and every conversion checks the MD5 of FLAC.
. "$(dirname "$0")/lib.sh"
mkdir "$work/in"
sox -r 44100 -n -c 2 -b 16 "$work/tone.wav" synth 3 sine 440 pinknoise vol 0.5
sox "$work/tone.wav" -b 24 "$work/tone24.wav" vol 0.7
flac -s -o "$work/in/good.flac" "$work/tone.wav"
flac -s -o "$work/in/good24.flac" "$work/tone24.wav"
ffmpeg -v error -i "$work/tone.wav" -y "$work/in/nosum.flac"
ffmpeg -v error -f lavfi -i 'aevalsrc=0.3*sin(700*t):s=48000:d=1' -c:a pcm_s32le "$work/wide.wav"
cp "$work/tone.wav" "$work/in/good.wav"
change() { # FILE OFFSET BYTES
    printf "$3" | dd of="$1" bs=1 seek="$2" conv=notrunc status=none
}
# The checksum of the audio is the end of the first block; all zeros say that there is none.
change "$work/in/nosum.flac" 26 '\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0'
cp "$work/in/good.flac" "$work/in/wrongsum.flac"
change "$work/in/wrongsum.flac" 30 'x'
cp "$work/in/good.flac" "$work/in/broken.flac"
change "$work/in/broken.flac" $(($(stat -c %s "$work/in/good.flac") / 2)) 'Tonemill'
head -c 300000 "$work/tone.wav" >"$work/in/cut.wav"
# 32 bits, which another decoder reads.
convert --to FLAC --out "$work/in" "$work/wide.wav"
expect_converted 1 0
cp "$work/in/wide.flac" "$work/in/widewrong.flac"
change "$work/in/widewrong.flac" 30 'x'

convert --to 'Test Conversion' --out "$work/out" "$work"/in/* &&
    fail "a batch with damaged files ended with 0"
expect_converted 5 4
for name in wrongsum.flac broken.flac cut.wav widewrong.flac; do
    grep -q "^failed .*/$name\$" "$work/convert.log" || fail "$name is not told as failed"
done
grep -q "^sound .*/good24.flac\$" "$work/convert.log" || { fail "good24.flac is not told as sound"; cat "$work/convert.log"; }
expect_nothing_else "$work/out" 0
convert --to Wave --out "$work/wave" "$work/in/wrongsum.flac" "$work/in/nosum.flac"
expect_converted 1 1
expect_nothing_else "$work/wave" 1
finish
