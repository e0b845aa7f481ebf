#!/usr/bin/env bash
# Depths, rates and channels through every encoder. Without loss: the very samples at their own depth, every
# channel in its place; or an information line that names what the target can't hold. With loss: the
# exact length, every channel in its place.
# Usage: matrix.sh WORKER_FARM [all]     all: every combination; else a part with each value of each
. "$(dirname "$0")/farm.sh"
extent=${2:-part}
depths=(s16 s24 s32 f32)
rates=(8000 11025 44100 48000 96000 192000)
layouts=(mono stereo 3.0 quad 5.0 5.1 6.1 7.1) # 1 to 8 channels
in=$work/in
mkdir "$in" "$work/master" "$work/tones"

# Another recording in each channel.
voices=(Front_Left Front_Right Front_Center Noise Rear_Left Rear_Right Side_Left Side_Right)
sox -D -M $(printf '/usr/share/sounds/alsa/%s.wav ' "${voices[@]}") -b 32 "$work/voices.wav" trim 0.3 0.20003 vol 0.93
chosen() { # DEPTH RATE CHANNELS, all as indexes from 0
    [ "$extent" = all ] || [ $((($1 + $3) % 2)) = 0 ] && [ "$extent" = all -o $((($3 + 5 * $1) % 6)) = "$2" ]
}
# The first channels of a file of 32 bits, with their places said, at some depth.
shape() { # FROM DEPTH RATE CHANNELS TO [FILTER]
    sox -V1 "$1" -t raw - remix $(seq "$4") |
        ffmpeg -v error -f s32le -ar "$3" -ch_layout "${layouts[$4 - 1]}" -i - -af "${6:-anull}" -c:a "pcm_${2}le" -y "$5"
}
for r in "${!rates[@]}"; do
    sox -D "$work/voices.wav" -b 32 "$work/master/$r.wav" rate "${rates[r]}"
    for c in "${!layouts[@]}"; do
        for d in "${!depths[@]}"; do
            chosen "$d" "$r" "$c" || continue
            filter=
            [ "${depths[d]}" = f32 ] && filter="aformat=flt,volume=1.6:precision=float" # beyond full scale
            shape "$work/master/$r.wav" "${depths[d]}" "${rates[r]}" $((c + 1)) \
                "$in/${depths[d]}-${rates[r]}-${layouts[c]}.wav" $filter
        done
    done
done

# "RATE PLACES KIND FRAMES HASH" of a file. Whether the two behind are at the sides or at the back is one to
# FLAC; one and two channels need no places. The kind of samples is their depth, or "float".
facts() {
    local frame
    ffprobe -v error -select_streams a:0 -show_entries \
        stream=codec_name,sample_fmt,sample_rate,channels,channel_layout,bits_per_raw_sample -of default=nw=1 "$1" |
        awk -F = '{ v[$1] = $2 } END {
            places = v["channels"] == 1 ? "mono" : v["channels"] == 2 ? "stereo" : v["channel_layout"]; sub(/\(side\)/, "", places)
            kind = v["sample_fmt"] ~ /flt/ ? "float" : v["codec_name"] ~ /_s(16|24|32)/ ? substr(v["codec_name"], 6, 2) : v["bits_per_raw_sample"]
            print v["channels"], v["sample_rate"], places, kind }' >"$2.probe"
    read -r frame _ <"$2.probe"
    ffmpeg -nostdin -v error -i "$1" -map 0:a:0 -f s32le - | tee >(wc -c >"$2.bytes") | md5sum >"$2.hash"
    while [ ! -s "$2.bytes" ]; do sleep 0.01; done # the shell does not wait for it
    echo "$(cut -d ' ' -f 2- "$2.probe") $(($(cat "$2.bytes") / 4 / frame)) $(cat "$2.hash")" >"$2"
}
# ffmpeg reads no FLAC of 32 bits.
readable() { # FILE: prints a file with the same audio that ffmpeg reads
    if [[ $1 == *.flac ]] && [ "$(metaflac --show-bps "$1")" = 32 ]; then
        flac -dsf -o "$1.back.wav" "$1" && printf '%s' "$1.back.wav"
    else
        printf '%s' "$1"
    fi
}
judge() { # SOURCE OUTPUT INFORMATION
    local name rate places kind frames hash rate2 places2 kind2 frames2 hash2 missing=() word
    name=$(basename "$1" .wav)
    facts "$(readable "$2")" "$2.facts"
    read -r rate places kind frames hash _ <"$1.facts"
    read -r rate2 places2 kind2 frames2 hash2 _ <"$2.facts"
    [ "$rate" = "$rate2" ] || missing+=(rate)
    [ "$frames" = "$frames2" ] || echo "$name: $frames2 frames, not $frames"
    [ "$places" = "$places2" ] || missing+=("speakers $places as $places2")
    [ "$kind" = "$kind2" ] || missing+=("depth $kind as $kind2")
    [ "$hash" = "$hash2" ] || [ "$kind" != "$kind2" ] || echo "$name: other samples at the same depth"
    for word in "${missing[@]}"; do # by name: samples of floating point or 32 bit, places of channels
        [[ $3 =~ can\'t\ hold && ( $word != depth* || $3 =~ floating|bit ) && ( $word != speakers* || $3 =~ places|channels ) ]] ||
            echo "$name: $word without a word: $3"
    done
    [ ${#missing[@]} != 0 ] || [ -z "$3" ] || echo "$name: nothing is missing, and yet: $3"
}
export -f judge facts readable
for source in "$in"/*.wav; do printf '%s\n%s\n' "$source" "$source.facts"; done | xargs -d '\n' -n 2 -P 2 bash -c 'facts "$@"' _
judge_all() { # ENCODER FOLDER SOURCES JUDGE: rows of a farm
    awk -F '\t' '$2 != 0 { print $1 ": " $5 }' "$2/rows.txt" >"$work/faults.txt"
    awk -F '\t' '$4 == "written" { print $1; print $6 }' "$2/rows.txt" | while IFS= read -r name && IFS= read -r information; do
        printf '%s\n%s\n%s\n' "$3/$name" "$(echo "$2/written/$name".*)" "$information"
    done | xargs -d '\n' -n 3 -P 2 bash -c "$4"' "$@"' _ >>"$work/faults.txt" 2>&1
    sed "s/^/$1: /" "$work/faults.txt" >"$work/named.txt"
    fail_lines "$work/named.txt"
    awk -F '\t' -v encoder="$1" '{ told += $6 != "" } END { print encoder ": " NR " files, " told + 0 " with information" }' "$2/rows.txt"
    rm -rf "$2"
}

for encoder in Wave AIFF Wave64 FLAC ALAC WavPack; do
    run_farm "$encoder" "$work/out-$encoder" 0 0 "$in"/*.wav
    judge_all "$encoder" "$work/out-$encoder" "$in" judge
done

# A tone of its own in each channel, at every rate with some channels and every number of them.
hertz=(400 700 1000 60 1300 1600 1900 2200) # the fourth is the low one from 5.1 on
tones() { # RATE DEPTH CHANNELS SECONDS
    local parts=() pitch=("${hertz[@]}") i
    [ "$3" -lt 6 ] && pitch[3]=1150
    for ((i = 0; i < $3; ++i)); do parts+=(sine "${pitch[i]}"); done
    sox -D -r "$1" -n -c "$3" -b 32 "$work/tone.wav" synth "$4" "${parts[@]}" vol 0.3
    shape "$work/tone.wav" "$2" "$1" "$3" "$work/tones/$2-$1-$3.wav"
}
for d in "${!depths[@]}"; do
    for r in "${!rates[@]}"; do
        for c in 1 2 3 4 5 6 7 8; do
            [ "$extent" = all ] || [ $(((c + d) % 4)) = 0 -a $(((c + 3 * d) % 6)) = "$r" ] || [ "$c$d" = "2$((r % 4))" ] || continue
            tones "${rates[r]}" "${depths[d]}" "$c" 1.00005
        done
    done
done
pitches() { # FILE: what each channel sounds at, in Hz
    local channel
    for ((channel = 1; channel <= $(soxi -V1 -c "$1"); ++channel)); do
        # what sox takes for the frequency is too low near half the rate
        sox -V1 "$1" -n remix "$channel" stat 2>&1 | awk -v rate="$(soxi -V1 -r "$1")" '
            /Rough/ { x = $3 * 3.14159265 / rate; print x > 0 && x < 1 ? atan2(x, sqrt(1 - x * x)) * rate / 3.14159265 : 0 }'
    done
}
judge_tones() { # SOURCE OUTPUT INFORMATION
    local source=$1 name decoded=$2.wav rate channels wanted got
    name=$(basename "$1" .wav)
    case $2 in
    *.opus) opusdec --quiet --rate 48000 "$2" "$decoded" 2>/dev/null ;;
    *) ffmpeg -nostdin -v error -i "$2" -map 0:a:0 -y "$decoded" ;;
    esac
    rate=$(soxi -V1 -r "$decoded") channels=$(soxi -V1 -c "$decoded")
    got=$(soxi -V1 -s "$decoded")
    if [[ $2 == *.ogg ]]; then # ffmpeg does not cut the first and last block as oggdec does, which leaves Vorbis's order
        oggdec -Q -o "$2.length.wav" "$2"
        got=$(soxi -V1 -s "$2.length.wav")
    fi
    wanted=$(awk -v n="$(soxi -V1 -s "$source")" -v from="$(soxi -V1 -r "$source")" -v to="$rate" 'BEGIN {printf "%d", n * to / from}')
    local excess=$((got - wanted)) room=1 # of a last frame that is there in part
    [[ $2 == *.m4a ]] && room=1024        # ffmpeg leaves what fills AAC's last packet
    [ "$excess" -ge 0 ] && [ "$excess" -le "$room" ] || echo "$name: $got frames at $rate Hz, not $wanted"
    [[ $2 == *.opus ]] || [ "$rate" = "$(soxi -V1 -r "$source")" ] || [ -n "$3" ] || echo "$name: $rate Hz without a word"
    if [ "$channels" != "$(soxi -V1 -c "$source")" ]; then
        [ -n "$3" ] || echo "$name: $channels channels without a word"
        return
    fi
    paste <(pitches "$source") <(pitches "$decoded") | awk -v name="$name" '
        { away = $1 > $2 ? $1 - $2 : $2 - $1; if ($1 == 0 || away > $1 / 20 + 3) print name ": channel " NR " sounds at " int($2) " Hz, not " int($1) }'
}
export -f judge_tones pitches
for encoder in 'mp3 (Lame)' 'm4a AAC' 'Ogg Vorbis' Opus; do
    run_farm "$encoder" "$work/out-$encoder" 0 0 "$work/tones"/*.wav
    judge_all "$encoder" "$work/out-$encoder" "$work/tones" judge_tones
done
finish
