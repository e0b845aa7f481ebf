#!/usr/bin/env bash
# The effect "Volume" on real recordings, measured by ffmpeg's own meter.
. "$(dirname "$0")/lib.sh"
music=/usr/share/games/frozen-bubble/snd
mkdir "$work/in"
# A label of ffmpeg's summary, "I" (LUFS) or "Peak" (true peak in dBTP), of a file.
measure() { ffmpeg -nostats -i "$1" -af ebur128=peak=true -f null - 2>&1 | awk -v key="$2:" '/Summary/ { s = 1 } s && $1 == key { print $2 }'; }
sample_peak() { sox "$1" -n stats 2>&1 | awk '/^Pk lev dB/ { print $4 }'; }
near() { awk -v a="$1" -v b="$2" -v by="$3" 'BEGIN { exit !(a != "" && a - b <= by && b - a <= by) }'; }
below() { awk -v a="$1" -v b="$2" 'BEGIN { exit !(a != "" && a <= b) }'; }
expect_loudness() { # FILE LUFS
    near "$(measure "$1" I)" "$2" 0.1 || fail "$1 has $(measure "$1" I) LUFS, not $2"
}
expect_true_peak() { # FILE HIGHEST [LOWEST]
    local peak
    peak=$(measure "$1" Peak)
    below "$peak" "$2" && below "${3:--200}" "$peak" || fail "true peaks of $1 reach $peak, not ${3:-} to $2"
}

# Music, speech, mono; in mp3, 24 bit, at 96 kHz; 5.1 with a loud low-frequency channel.
ffmpeg -v error -t 40 -i "$music/frozen-mainzik-1p.ogg" -c:a libmp3lame -q:a 2 "$work/in/music.mp3"
cp "$music/introzik.ogg" "$work/in/intro.ogg"
cat_wavs=(/usr/share/sounds/alsa/*.wav)
sox "${cat_wavs[@]}" -b 24 "$work/in/speech.wav"
ffmpeg -v error -ss 20 -t 10 -i "$music/frozen-mainzik-2p.ogg" -ar 96000 -c:a pcm_s24le "$work/in/wide.wav"
ffmpeg -v error -t 12 -i "$music/introzik.ogg" -af 'pan=5.1|c0=c0|c1=c1|c2=0.5*c0|c3=c1|c4=0.7*c1|c5=0.7*c0' \
    -c:a pcm_s16le "$work/in/six.wav"

convert --to Wave --out "$work/quiet" "$work"/in/* --effect 'Volume=-loudness="-27.5"'
expect_converted 5 0
for file in "$work"/in/*; do
    name=$(basename "${file%.*}")
    expect_loudness "$work/quiet/$name.wav" -27.5
    expect_true_peak "$work/quiet/$name.wav" -0.9
    expect_frames "$work/quiet/$name.wav" "$(frames "$file")"
done

# Too loud for its peaks: the whole is lowered, or these moments are.
convert --to Wave --out "$work/lower" "$work"/in/* --effect 'Volume=-loudness="-8" -limit="-2"'
expect_converted 5 0
convert --to Wave --settings '-format="24"' --out "$work/limit" "$work"/in/* \
    --effect 'Volume=-loudness="-8" -limit="-2" -over="limit"'
expect_converted 5 0
for file in "$work"/in/*; do
    name=$(basename "${file%.*}")
    expect_true_peak "$work/lower/$name.wav" -1.9 -2.15
    expect_true_peak "$work/limit/$name.wav" -1.9 -2.3
    below "$(measure "$work/lower/$name.wav" I)" "$(measure "$work/limit/$name.wav" I)" ||
        fail "$name is louder without its limiter"
    expect_frames "$work/limit/$name.wav" "$(frames "$file")"
done

convert --to FLAC --out "$work/peak" "$work"/in/*.wav --effect 'Volume=-peak="-3"'
expect_converted 3 0
for file in "$work"/peak/*; do
    near "$(sample_peak "$file")" -3 0.1 || fail "$file peaks at $(sample_peak "$file")"
done

# What needs no change stays as it is: no gain, silence, a sound too short to have a loudness.
sox -D -r 44100 -n -c 2 -b 16 "$work/in/silent.wav" trim 0 2
sox "$work/in/speech.wav" -b 16 -D "$work/in/brief.wav" trim 0 0.3
convert --to FLAC --out "$work/same" "$work"/in/{silent,brief}.wav --effect 'Volume='
expect_converted 2 0
expect_same_audio "$work/in/silent.wav" "$work/same/silent.flac"
expect_same_audio "$work/in/brief.wav" "$work/same/brief.flac"
convert --to FLAC --out "$work/same" "$work/in/wide.wav" --effect 'Volume=-gain="0"'
expect_same_audio "$work/in/wide.wav" "$work/same/wide.flac"
finish
