#!/usr/bin/env bash
# ALAC and AAC in M4A: the very samples, or their very number; speakers in order; every tag.
. "$(dirname "$0")/lib.sh"
mkdir "$work/in"
make() { # NAME RATE CODEC CHANNELS SECONDS
    local tones=() i
    for ((i = 1; i <= $4; ++i)); do
        tones+=("0.3*sin($((i * 600))*2*PI*t)+0.1*random($i)")
    done
    ffmpeg -v error -f lavfi -i "aevalsrc=$(IFS='|'; echo "${tones[*]}"):s=$2:d=$5" -c:a "$3" -y "$work/in/$1.wav"
}
make u8 8000 pcm_u8 1 0.500125
make s16 44100 pcm_s16le 2 3.0001
make s24 192000 pcm_s24le 1 0.3
make six 48000 pcm_s24le 6 0.2
make eight 48000 pcm_s16le 8 0.2
make one 44100 pcm_s16le 2 0.00002
convert --to ALAC --out "$work/alac" "$work"/in/*
expect_converted 6 0
for source in "$work"/in/*; do
    output="$work/alac/$(basename "${source%.*}").m4a"
    expect_same_audio "$source" "$output"
    [ "$(ffprobe -v error -show_entries stream=codec_name -of csv=p=0 "$output")" = alac ] || fail "$output is no ALAC"
done
expect_nothing_else "$work/alac" 6
make wide 48000 pcm_s32le 2 0.3
convert --to ALAC --out "$work/wide" "$work/in/wide.wav"
expect_converted 1 0
depth=$(ffprobe -v error -show_entries stream=bits_per_raw_sample -of csv=p=0 "$work/wide/wide.m4a")
[ "$depth" = 24 ] || fail "32 bit became $depth"

ffmpeg -v error -f lavfi -i testsrc=s=300x300 -frames:v 1 "$work/cover.jpg"
ffmpeg -v error -f lavfi -i testsrc=s=200x200 -frames:v 1 "$work/back.png"
flac -s -o "$work/tagged.flac" -T "TITLE=Café – 日本" -T "ARTIST=Erste" -T "ARTIST=Zweite" -T "ALBUM=Alb: um" \
    -T "TRACKNUMBER=3" -T "TRACKTOTAL=12" -T "DISCNUMBER=1" -T "ALBUMARTIST=Alle" -T "DATE=1999-05-01" \
    -T "COMPOSER=Någon" -T "GENRE=Jazz" -T "GENRE=Pop" -T "BPM=120.5" -T "COMPILATION=1" -T "ISRC=DE1" \
    -T $'COMMENT=one\ntwo' -T "LYRICS=la" -T "OWN KEY=own" -T "OWN KEY=second" -T "ORGANIZATION=House" \
    -T "REPLAYGAIN_TRACK_GAIN=-3.21 dB" --picture="4|image/png|Back||$work/back.png" \
    --picture="3|image/jpeg|Front||$work/cover.jpg" "$work/in/s16.wav"
metaflac --export-tags-to=- "$work/tagged.flac" | sort >"$work/tags.txt"

for encoder in ALAC 'm4a AAC'; do
    convert --to "$encoder" --out "$work/tags-$encoder" "$work/tagged.flac"
    expect_converted 1 0
    file="$work/tags-$encoder/tagged.m4a"
    expect_tag "$file" title "Café – 日本"
    expect_tag "$file" artist Erste # ffprobe shows the first of several; the way back shows both
    expect_tag "$file" album "Alb: um"
    expect_tag "$file" album_artist Alle
    expect_tag "$file" track 3/12
    expect_tag "$file" date 1999-05-01
    expect_tag "$file" compilation 1
    expect_tag "$file" LABEL House
    ffmpeg -v error -i "$file" -map 0:v:0 -c copy "$work/$encoder.jpg" && cmp "$work/cover.jpg" "$work/$encoder.jpg" ||
        fail "the cover changed on its way to $encoder"
    convert --to FLAC --out "$work/back-$encoder" "$file"
    expect_converted 1 0
    metaflac --export-tags-to=- "$work/back-$encoder/tagged.flac" | sort | diff "$work/tags.txt" - ||
        fail "tags changed on their way through $encoder"
done

# AAC: the length to the frame, as the file tells it and as our decoder cuts it.
mkdir "$work/tones"
sox -r 44100 -n -c 2 -b 16 "$work/tones/long.wav" synth 200000s sine 440 vol 0.5
sox "$work/tones/long.wav" "$work/tones/first.wav" trim 0 123457s
sox "$work/tones/long.wav" "$work/tones/second.wav" trim 123457s
cp "$work"/in/{u8,s24,eight,one}.wav "$work/tones"
tones() { # NAME HERTZ...: a channel each
    local voices=() hertz
    for hertz in "${@:2}"; do
        voices+=(sine "$hertz")
    done
    sox -r 48000 -n -c $(($# - 1)) -b 24 "$work/tones/$1.wav" synth 1 "${voices[@]}" vol 0.5
}
tones three 400 800 1600
tones quad 400 800 1600 3200
tones six 400 800 1600 60 3200 5000
tones seven 400 800 1600 60 3200 5000 6400
convert --to 'm4a AAC' --out "$work/aac" "$work"/tones/*
expect_converted 11 0
convert --to Wave --out "$work/back" "$work"/aac/*
expect_converted 11 0
for row in long:200000 first:123457 second:76543 u8:4001 s24:28800 eight:9600 one:1 three:48000 six:48000; do
    file="$work/aac/${row%:*}.m4a"
    told=$(ffprobe -v error -select_streams a -show_entries stream=duration_ts -of csv=p=0 "$file")
    [ "$told" = "${row#*:}" ] || fail "$file tells $told frames, not ${row#*:}"
    expect_frames "$work/back/${row%:*}.wav" "${row#*:}"
done
# No click where two files meet, that were one: the tone's largest step is 0.0314.
sox "$work/back/first.wav" "$work/back/second.wav" "$work/joined.wav"
step=$(sox "$work/joined.wav" -n stat 2>&1 | sed -n 's/^Maximum delta: *//p')
awk "BEGIN { exit !($step < 0.036) }" || fail "a step of $step where two files meet"
for row in three:400:800:1600 quad:400:800:1600:3200 six:400:800:1600:60:3200:5000 \
    seven:400:800:1600:60:3200:5000:6400; do
    IFS=: read -r -a hertz <<<"$row"
    ffmpeg -v error -i "$work/aac/${hertz[0]}.m4a" -y "$work/decoded.wav"
    for ((i = 1; i < ${#hertz[@]}; ++i)); do
        found=$(sox "$work/decoded.wav" -n remix $i trim 0.2 0.5 stat 2>&1 | sed -n 's/^Rough *frequency: *//p')
        awk "BEGIN { exit !($found > ${hertz[i]} * 0.9 && $found < ${hertz[i]} * 1.1) }" ||
            fail "channel $i of ${hertz[0]} has $found Hz, not ${hertz[i]}"
    done
done
convert --to 'm4a AAC' --settings '-bitrate="96" -channels="1"' --out "$work/mono" "$work/tones/six.wav"
expect_converted 1 0
[ "$(ffprobe -v error -show_entries stream=channels -of csv=p=0 "$work/mono/six.m4a")" = 1 ] || fail "not mono"
finish
