#!/usr/bin/env bash
# Measures the program on this machine; nothing here passes or fails. Usage: scripts/bench.sh [FILES]
# FILES: how many one-minute files the engine is measured with (default 24).
set -euo pipefail
cd "$(dirname "$0")/.."
number=${1:-24}
./build.sh program bench
. scripts/wine-env.sh
tm_start_wine
trap 'tm_stop_wine; rm -rf "$work"' EXIT
work=$(mktemp -d)
windows_path() { printf 'Z:%s' "$(realpath -ms -- "$1")" | tr / '\\'; }
TM_PROGRAM=$(windows_path "$PWD/build/Tonemill")\\
export TM_PROGRAM
bench() { tm_with_home wine build/windows/tests/bench/bench.exe "$@" 2>/dev/null </dev/null | tr -d '\r'; }
seconds() { # prints user+sys and wall seconds of a command and its children
    /usr/bin/env TIMEFORMAT='%U %S %R' bash -c 'time "$@" >/dev/null 2>&1' _ "$@" 2>&1 | tail -n 1 |
        awk '{printf "%.2f s of processor, %.2f s of clock\n", $1 + $2, $3}'
}

echo "-- the program's own work"
bench list 100000
bench naming 100000
bench form 20
bench examine 1000 "$(windows_path /usr/share/sounds/alsa/Noise.wav)"

echo "-- engine: $number files of a minute against the same workers two at a time"
mkdir "$work/in" "$work/loop" "$work/batch"
for n in $(seq "$number"); do
    sox -r 44100 -n -c 2 -b 16 "$work/in/$n.wav" synth 60 pinknoise sine mix $((200 + n)) vol 0.4
done
for _ in 1 2 3; do
    bench loop FLAC "$(windows_path "$work/loop")" $(for f in "$work"/in/*; do windows_path "$f"; echo; done)
    started=$(date +%s%N)
    TM_SKIP_BUILD=1 TM_WINE_RUNNING=1 ./convert.sh --to FLAC --out "$work/batch" "$work"/in/* >"$work/log"
    echo "batch: $(tail -n 1 "$work/log") in $((($(date +%s%N) - started) / 1000000)) ms (program and script)"
    rm -f "$work"/batch/*
done

echo "-- codecs: one file of 10 minutes, worker against the native command line encoder"
sox -r 44100 -n -c 2 -b 16 "$work/long.wav" synth 600 pinknoise sine mix 440 vol 0.4
worker() { bench loop "$1" "$(windows_path "$work/loop")" "$(windows_path "$work/long.wav")"; }
for _ in 1 2 3; do
    echo "FLAC: $(worker FLAC)"; echo "flac: $(seconds flac -s -f -o "$work/long.flac" "$work/long.wav")"
    echo "mp3 (Lame): $(worker 'mp3 (Lame)')"; echo "lame: $(seconds lame --quiet -V 2 "$work/long.wav" "$work/long.mp3")"
done
