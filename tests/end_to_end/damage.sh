#!/usr/bin/env bash
# A damaged, an empty, a missing and a foreign file among good ones: the good ones convert, the
# others are told as failed and leave nothing; an older output of a failed file stays as it was.
. "$(dirname "$0")/lib.sh"
mkdir "$work/in" "$work/out"
for n in 1 2 3 4; do
    sox -r 44100 -n -c 2 -b 16 "$work/in/good$n.wav" synth $n sine $((n * 200)) vol 0.5
done
flac -s -o "$work/in/cut.flac" "$work/in/good4.wav"
head -c 300000 "$work/in/good4.wav" >"$work/in/cutwave.wav"
truncate -s $(($(stat -c %s "$work/in/cut.flac") * 6 / 10)) "$work/in/cut.flac"
: >"$work/in/empty.mp3"
head -c 5000 /dev/urandom >"$work/in/noise.flac"
printf 'words\n' >"$work/in/letter.txt"
printf 'kept' >"$work/out/cut.flac"
convert --to FLAC --out "$work/out" "$work"/in/* "$work/in/missing.wav" &&
    fail "a batch with failures ended with 0"
expect_converted 4 6
for name in cut.flac cutwave.wav empty.mp3 noise.flac letter.txt missing.wav; do
    grep -q "^failed .*/$name\$" "$work/convert.log" || fail "$name is not told as failed"
done
for n in 1 2 3 4; do
    flac -ts "$work/out/good$n.flac" || fail "good$n"
done
[ "$(cat "$work/out/cut.flac")" = kept ] || fail "the older output was touched"
expect_nothing_else "$work/out" 5
finish
