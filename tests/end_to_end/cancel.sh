#!/usr/bin/env bash
# Cancel ends the batch soon and leaves nothing behind: no output, no half file, no worker.
. "$(dirname "$0")/lib.sh"
mkdir "$work/in" "$work/out"
sox -r 96000 -n -c 2 -b 24 "$work/in/long1.wav" synth 600 noise vol 0.5
cp "$work/in/long1.wav" "$work/in/long2.wav"
printf 'kept' >"$work/out/long1.flac"
. "$root/scripts/wine-env.sh"
tm_with_home wine "$1" >/dev/null 2>&1 </dev/null &
presser=$!
started=$(date +%s)
convert --to FLAC --settings '-level="8"' --out "$work/out" "$work"/in/* && fail "a cancelled batch ended with 0"
wait $presser || fail "Cancel could not be pressed"
[ $(($(date +%s) - started)) -lt 60 ] || fail "the cancelled batch went on for long"
grep -q "ended without a report" "$work/convert.log" || fail "the batch was not cancelled"
[ "$(cat "$work/out/long1.flac")" = kept ] || fail "the older output was touched"
expect_nothing_else "$work/out" 1
workers() { ps -eo stat,args | grep -F "long1.wav\|Tonemill\\Millworker.exe" | grep -v -e grep -e '^Z'; }
for _ in $(seq 30); do
    workers >/dev/null || break
    sleep 0.1
done
workers && fail "a worker lives on"
finish
