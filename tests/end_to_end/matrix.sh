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

# Whether the two behind are at the sides or at the back is one to FLAC; one and two channels need no places.
layout() {
    ffprobe -v error -show_entries stream=channels,channel_layout -of csv=p=0 "$1" | head -n 1 |
        sed 's/^1,.*/mono/; s/^2,.*/stereo/; s/(side)//; s/^[0-9]*,//'
}
kind() { # of samples: their depth, or "float"
    ffprobe -v error -show_entries stream=sample_fmt,bits_per_raw_sample,codec_name -of default=nw=1 "$1" | awk -F = '
        $1 == "codec_name" { codec = $2 } $1 == "sample_fmt" { format = $2 } $1 == "bits_per_raw_sample" { bits = $2 }
        END { if (format ~ /flt/) print "float"; else if (codec ~ /_s(16|24|32)/) print substr(codec, 6, 2); else print bits }'
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
    local source=$1 name output missing=()
    name=$(basename "$1" .wav)
    output=$(readable "$2")
    [ "$(soxi -V1 -r "$source")" = "$(ffprobe -v error -show_entries stream=sample_rate -of csv=p=0 "$output" | head -n 1)" ] || missing+=(rate)
    if [ "$(pcm_hash "$source")" != "$(pcm_hash "$output")" ]; then
        [ "$(kind "$source")" != "$(kind "$output")" ] && missing+=("depth $(kind "$source") as $(kind "$output")") ||
            echo "$name: other samples at the same depth"
        [ "$(frames "$source")" = "$(frames "$output")" ] || echo "$name: other length"
    fi
    [ "$(layout "$source")" = "$(layout "$output")" ] || missing+=("speakers $(layout "$source") as $(layout "$output")")
    local word
    for word in "${missing[@]}"; do # by name: samples of floating point or 32 bit, places of channels
        [[ $3 =~ can\'t\ hold && ( $word != depth* || $3 =~ floating|bit ) && ( $word != speakers* || $3 =~ places|channels ) ]] ||
            echo "$name: $word without a word: $3"
    done
    [ ${#missing[@]} != 0 ] || [ -z "$3" ] || echo "$name: nothing is missing, and yet: $3"
}
frames() { ffmpeg -nostdin -v error -i "$1" -map 0:a:0 -f s16le - | wc -c | awk -v c="$(soxi -V1 -c "$1" 2>/dev/null || ffprobe -v error -show_entries stream=channels -of csv=p=0 "$1" | head -n 1)" '{print $1 / 2 / c}'; }
export -f judge pcm_hash frames layout kind readable

for encoder in Wave AIFF Wave64 FLAC ALAC WavPack; do
    folder=$work/out-$encoder
    run_farm "$encoder" "$folder" 0 0 "$in"/*.wav
    awk -F '\t' '$2 != 0 { print $1 ": " $5 }' "$folder/rows.txt" >"$work/faults.txt"
    awk -F '\t' '$4 == "written" { print $1; print $6 }' "$folder/rows.txt" | while IFS= read -r name && IFS= read -r information; do
        printf '%s\n%s\n%s\n' "$in/$name" "$(echo "$folder/written/$name".*)" "$information"
    done | xargs -d '\n' -n 3 -P 2 bash -c 'judge "$@"' _ >>"$work/faults.txt" 2>&1
    sed "s/^/$encoder: /" "$work/faults.txt" >"$work/named.txt"
    fail_lines "$work/named.txt"
    awk -F '\t' -v encoder="$encoder" '{ told += $6 != "" } END { print encoder ": " NR " files, " told + 0 " with information" }' "$folder/rows.txt"
    rm -rf "$folder"
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
    folder=$work/out-$encoder
    run_farm "$encoder" "$folder" 0 0 "$work/tones"/*.wav
    awk -F '\t' '$2 != 0 { print $1 ": " $5 }' "$folder/rows.txt" >"$work/faults.txt"
    awk -F '\t' '$4 == "written" { print $1; print $6 }' "$folder/rows.txt" | while IFS= read -r name && IFS= read -r information; do
        printf '%s\n%s\n%s\n' "$work/tones/$name" "$(echo "$folder/written/$name".*)" "$information"
    done | xargs -d '\n' -n 3 -P 2 bash -c 'judge_tones "$@"' _ >>"$work/faults.txt" 2>&1
    sed "s/^/$encoder: /" "$work/faults.txt" >"$work/named.txt"
    fail_lines "$work/named.txt"
    awk -F '\t' -v encoder="$encoder" '{ told += $6 != "" } END { print encoder ": " NR " files, " told + 0 " with information" }' "$folder/rows.txt"
    rm -rf "$folder"
done
finish
