#!/usr/bin/env bash
# Measures the program on this machine; nothing here passes or fails.
# Usage: scripts/bench.sh [FILES]              all of the program; FILES of a minute for the engine (default 24)
#        scripts/bench.sh codecs [SECONDS]     processor time of the worker against native encoders (default 300)
#        scripts/bench.sh batch [FILES]        a batch against another batch converter, of a minute each (default 24)
# A quiet machine is wanted. TM_SKIP_BUILD, TM_WINE_RUNNING, TM_PROGRAM_FOLDER and TM_BENCH are as for the tests.
set -euo pipefail
cd "$(dirname "$0")/.."
mode=all
case ${1:-} in codecs | batch) mode=$1; shift ;; esac
number=${1:-24}
[ -n "${TM_SKIP_BUILD:-}" ] || ./build.sh program bench
program=$(realpath "${TM_PROGRAM_FOLDER:-build/Tonemill}")
benchProgram=$(realpath "${TM_BENCH:-build/windows/tests/bench/bench.exe}")
. scripts/wine-env.sh
[ -n "${TM_WINE_RUNNING:-}" ] || tm_start_wine
work=$(mktemp -d)
trap '[ -n "${TM_WINE_RUNNING:-}" ] || tm_stop_wine; rm -rf "$work"' EXIT
windows_path() { printf 'Z:%s' "$(realpath -ms -- "$1")" | tr / '\\'; }
TM_PROGRAM=$(windows_path "$program")\\
export TM_PROGRAM
bench() { tm_with_home wine "$benchProgram" "$@" 2>/dev/null </dev/null | tr -d '\r'; }
seconds() { # prints user+sys and wall seconds of a command and its children
    /usr/bin/env TIMEFORMAT='%U %S %R' bash -c 'time "$@" >/dev/null 2>&1' _ "$@" 2>&1 | tail -n 1 |
        awk '{printf "%.2f s of processor, %.2f s of clock\n", $1 + $2, $3}'
}

# Music for long enough, as no tone generator makes it.
recording() { # FILE SECONDS
    local pieces
    mapfile -t pieces < <(find /usr/share/games/frozen-bubble -name '*.ogg' -size +500k | sort | head -n 8)
    sox -D "${pieces[@]}" -r 44100 -c 2 -b 16 "$1" \
        trim 0 "$2" 2>/dev/null
    [ "$(soxi -D "$1" | cut -d . -f 1)" -ge "$2" ] || echo "the recording is only $(soxi -d "$1") long"
}

# Wine does not tell what another process used, and no parent is left to hear of it: the system is asked while
# the worker runs, which misses some hundredths of a second at its end.
worker_seconds() { # ENCODER FILE
    local stat line fields used=0
    bench loop "$1" "$(windows_path "$work/loop")" "$(windows_path "$2")" >/dev/null &
    local job=$!
    while kill -0 "$job" 2>/dev/null; do
        for stat in /proc/[0-9]*/stat; do
            { read -r line <"$stat"; } 2>/dev/null || continue
            [[ $line == *'(Millworker.exe)'* ]] || continue
            grep -qzF -- "$TM_PROGRAM" "${stat%stat}cmdline" 2>/dev/null || continue
            read -ra fields <<<"${line##*) }"
            used=$((fields[11] + fields[12])) # user and system, in ticks
        done
        sleep 0.02
    done
    wait "$job" || true
    awk -v used="$used" -v ticks="$(getconf CLK_TCK)" 'BEGIN { print used / ticks }'
}

bench_codecs() {
    local seconds=${1:-300} encoder native mine best round
    recording "$work/music.wav" "$seconds"
    mkdir "$work/loop"
    local out=$work/native
    # The defaults of each encoder, and the same for the native one; -m: ours always stores the MD5 of the audio.
    local rows=("FLAC:flac -s -f -5 -o $out.flac IN" "mp3 (Lame):lame --quiet -V 2 IN $out.mp3"
        "Opus:opusenc --quiet --bitrate 128 IN $out.opus" "Ogg Vorbis:oggenc -Q -q 5 -o $out.ogg IN"
        "WavPack:wavpack -q -y -m IN -o $out.wv" "ALAC:ffmpeg -v error -y -i IN -c:a alac -threads 1 $out.m4a"
        "m4a AAC:ffmpeg -v error -y -i IN -c:a aac -b:a 160k -threads 1 $out.m4a")
    echo "-- codecs: $seconds s of music, seconds of processor time, the best of three"
    for row in "${rows[@]}"; do
        encoder=${row%%:*} mine= native=
        for round in 1 2 3; do
            best=$(worker_seconds "$encoder" "$work/music.wav")
            mine=$(printf '%s\n' $mine "$best" | sort -n | head -n 1)
            local command=${row#*:}
            best=$(seconds ${command/IN/$work/music.wav} | cut -d ' ' -f 1)
            native=$(printf '%s\n' $native "$best" | sort -n | head -n 1)
        done
        awk -v e="$encoder" -v m="$mine" -v n="$native" -v tool="${command%% *}" \
            'BEGIN { printf "%-12s worker %6.2f  %-8s %6.2f  ratio %.2f\n", e, m, tool, n, (n > 0 ? m / n : 0) }'
    done
}

bench_batch() {
    local count=${1:-24} n started format round
    mkdir "$work/in"
    recording "$work/music.wav" 300
    for n in $(seq "$count"); do sox -D "$work/music.wav" "$work/in/$n.wav" trim $((n * 7 % 240)) 60; done
    clock() { # WHAT COMMAND...
        started=$(date +%s%N)
        "${@:2}" >"$work/log" 2>&1 || { echo "$1 failed:"; tail -n 3 "$work/log"; }
        echo "$1: $((($(date +%s%N) - started) / 1000000)) ms"
    }
    echo "-- batch: $count files of a minute on two cores, wall clock from start to end, three rounds"
    for round in 1 2 3; do
        for format in FLAC:flac:5 'mp3 (Lame):mp3:2'; do
            local encoder=${format%%:*} rest=${format#*:}
            rm -rf "$work/mine" "$work/theirs" "$work/plain"
            TM_SKIP_BUILD=1 TM_WINE_RUNNING=1 clock "Tonemill (with its script), $encoder" \
                ./convert.sh --to "$encoder" --out "$work/mine" "$work"/in/*
            if type soundconverter >/dev/null 2>&1; then
                clock "soundconverter, $encoder" env HOME="$work/home" soundconverter -b -j 2 -f "${rest%:*}" -q "${rest#*:}" \
                    -o "$work/theirs" "$work"/in/*
            fi
            mkdir "$work/plain"
            case ${rest%:*} in
            flac) clock "xargs -P 2 flac" xargs -P 2 -I{} flac -s -5 -o "$work/plain/{}.flac" "$work/in/{}.wav" < <(seq "$count") ;;
            mp3) clock "xargs -P 2 lame" xargs -P 2 -I{} lame --quiet -V 2 "$work/in/{}.wav" "$work/plain/{}.mp3" < <(seq "$count") ;;
            esac
            for folder in mine theirs plain; do
                [ ! -d "$work/$folder" ] || echo "  $folder: $(find "$work/$folder" -type f | wc -l) files, $(du -sm "$work/$folder" | cut -f 1) MB"
            done
        done
    done
    type soundconverter >/dev/null 2>&1 || echo "for another batch converter: apt-get install soundconverter gstreamer1.0-plugins-good"
}

case $mode in
codecs) bench_codecs "$@"; exit ;;
batch) bench_batch "$@"; exit ;;
esac

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

bench_codecs
