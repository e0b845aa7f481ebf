#!/usr/bin/env bash
# Other rates and depths, judged by ffmpeg's own resampling and by sox: recordings come out as long and as
# they should be, what needs nothing stays bit by bit, and encoders that can't hold a rate resample as well.
. "$(dirname "$0")/lib.sh"
music=(/usr/share/games/frozen-bubble/snd/*.ogg)
ffmpeg -v error -i "${music[0]}" -t 10 -c:a pcm_f32le "$work/float.wav"
rate() { ffprobe -v error -show_entries stream=sample_rate,codec_name -of csv=p=0 "$1" | head -n 1; }
# The highest difference of two files in dB below full scale, rounded.
distance() {
    sox "$1" -e float -b 32 "$work/one.wav" 2>>"$work/sox.log"
    sox "$2" -e float -b 32 "$work/two.wav" 2>>"$work/sox.log"
    sox -m -v 1 "$work/one.wav" -v -1 "$work/two.wav" -n stats 2>&1 |
        awk '/^RMS lev dB/ { print ($4 == "-inf" ? 999 : int(-$4)) }'
}
expect_distance() { # FILE REFERENCE DB
    local far
    far=$(distance "$1" "$2")
    [ "${far:-0}" -ge "$3" ] || fail "$1 and $2 are ${far:-unknown} dB apart, not $3"
}
# soxr at 28 bits without roll-off, the length as we count it.
reference() { # SOURCE RATE TO [FILTER]
    ffmpeg -v error -i "$1" -af "${4:+$4,}aresample=$2:resampler=soxr:precision=28:cheby=1" -c:a pcm_f32le -y "$3"
}

# Rates up and down, from float and from 24 bit, in one channel and in six.
sox -D "$work/float.wav" -b 24 -c 1 "$work/mono.wav"
ffmpeg -v error -i "$work/float.wav" -af 'pan=5.1|c0=c0|c1=c1|c2=c0-c1|c3=0.1*c0|c4=0.5*c1|c5=-0.5*c0' -t 3 \
    -c:a pcm_f32le "$work/six.wav"
for target in 48000 96000 22050 32001; do
    convert --to Wave --settings '-format="float"' --out "$work/$target" "$work"/{float,mono,six}.wav \
        --effect "Resample=-rate=\"$target\" -bits=\"float\""
    expect_converted 3 0
    for name in float mono six; do
        in=$work/$name.wav out=$work/$target/$name.wav
        [ "$(rate "$out")" = "pcm_f32le,$target" ] || fail "$out has $(rate "$out")"
        expect_frames "$out" "$(($(frames "$in" | cut -d. -f1) * target / 44100 + \
            ($(frames "$in" | cut -d. -f1) * target % 44100 * 2 >= 44100)))"
        reference "$in" "$target" "$work/reference.wav"
        expect_distance "$out" "$work/reference.wav" 130
    done
done

# Depths: dithered noise has its known level, and 24 bits are rounded.
for row in '16 triangular 95 97' '16 none 99 103' '16 shaped 85 88' '24 triangular 147 152'; do
    read -r bits dither least most <<<"$row"
    convert --to FLAC --out "$work/$bits$dither" "$work/float.wav" \
        --effect "Resample=-rate=\"48000\" -bits=\"$bits\" -dither=\"$dither\""
    expect_converted 1 0
    flac -ts "$work/$bits$dither/float.flac" || fail "flac refuses $bits $dither"
    far=$(distance "$work/$bits$dither/float.flac" "$work/48000/float.wav")
    [ "$far" -ge "$least" ] && [ "$far" -le "$most" ] || fail "$bits bits, $dither: noise at -$far dB"
done

# What needs nothing stays bit by bit; with "down", lower rates too.
convert --to FLAC --out "$work/same" "$work/mono.wav" --effect 'Resample=' \
    --effect 'Resample=-rate="48000" -bits="24" -only="down"'
expect_converted 1 0
expect_same_audio "$work/mono.wav" "$work/same/mono.flac"

# Encoders that choose a rate themselves resample as well: a tone above the new range leaves nothing.
sox -D -r 96000 -n -b 24 "$work/high.wav" synth 3 sine 26000 gain -6 fade h 0.5 3 0.5
convert --to Wave --settings '-rate="48000" -format="float"' --out "$work/wave" "$work/high.wav"
expect_converted 1 0
left=$(sox "$work/wave/high.wav" -n stats 2>&1 | awk '/^RMS lev dB/ { print ($4 == "-inf" ? 999 : int(-$4)) }')
[ "$left" -ge 130 ] || fail "an alias is left at -$left dB"
finish
