#!/usr/bin/env bash
# What the encoders with loss write, as tools that are not ours read it: exact lengths, each channel in
# its place, all values of tags and the cover.
. "$(dirname "$0")/lib.sh"
mkdir "$work/in"
# A tone of its own in each channel tells where it went.
tones() { # FILE FREQUENCIES...
    local file=$1 parts=() hertz
    shift
    for hertz in "$@"; do parts+=(sine "$hertz"); done
    sox -D -r 48000 -n -c $# -b 16 "$file" synth 96001s "${parts[@]}" vol 0.3
}
expect_tones() { # WAVE FREQUENCIES...
    local file=$1 channel=0 hertz found
    shift
    [ "$(soxi -c "$file")" = $# ] || fail "$file has $(soxi -c "$file") channels, not $#"
    for hertz in "$@"; do
        channel=$((channel + 1))
        found=$(sox "$file" -n remix "$channel" stat 2>&1 | awk '/Rough/ {print $3}')
        [ $((found > hertz ? found - hertz : hertz - found)) -le $((hertz / 20 + 2)) ] ||
            fail "channel $channel of $file sounds at $found Hz, not $hertz"
    done
}
sox -r 44100 -n -c 2 -b 16 "$work/in/cd.wav" synth 123457s sine 440 vol 0.5
sox -r 96000 -n -c 2 -b 24 "$work/in/high.wav" synth 200001s sine 440 vol 0.5
sox -r 8000 -n -c 1 -b 16 "$work/in/phone.wav" synth 12345s sine 440 vol 0.5
sox -r 48000 -n -c 2 -b 16 "$work/in/tiny.wav" synth 1s sine 440
surround=(400 700 1000 60 1300 1600)
tones "$work/in/six.wav" "${surround[@]}"
tones "$work/in/eight.wav" "${surround[@]}" 1900 2200
ffmpeg -v error -f lavfi -i testsrc=s=300x300 -frames:v 1 "$work/cover.jpg"
flac -s -o "$work/in/tags.flac" -T "TITLE=Café – 日本" -T "ARTIST=Erste" -T "ARTIST=Zweite" -T "TRACKNUMBER=3" \
    -T "TRACKTOTAL=12" -T "REPLAYGAIN_TRACK_GAIN=-3.21 dB" -T "Own Key=x" \
    --picture="3|image/jpeg|Front||$work/cover.jpg" "$work/in/cd.wav"
expect_comments() { # FILE WITH ONE PER LINE
    local text
    for text in "TITLE=Café – 日本" ARTIST=Erste ARTIST=Zweite TRACKNUMBER=3 TRACKTOTAL=12 "OWN KEY=x"; do
        grep -qi "^[[:space:]]*$text\$" "$1" || fail "no $text in $1"
    done
}
expect_cover() { # FILE
    ffmpeg -v error -i "$1" -map 0:v:0 -c copy -f image2 -y "$work/back.jpg"
    cmp "$work/cover.jpg" "$work/back.jpg" || fail "the cover of $1 is another"
}

convert --to Opus --out "$work/opus" "$work"/in/*
expect_converted 7 0
for row in cd:134375 high:100001 phone:74070 tiny:1 six:96001 eight:96001; do
    name=${row%:*}
    opusinfo "$work/opus/$name.opus" >"$work/info.txt" || fail "opusinfo refuses $name"
    grep -i warning "$work/info.txt" && fail "opusinfo warns of $name"
    opusdec --quiet --rate 48000 "$work/opus/$name.opus" "$work/$name.wav" 2>/dev/null
    [ "$(soxi -s "$work/$name.wav")" = "${row#*:}" ] || fail "$name has $(soxi -s "$work/$name.wav") frames"
done
expect_tones "$work/six.wav" "${surround[@]}"
expect_tones "$work/eight.wav" "${surround[@]}" 1900 2200
opusinfo "$work/opus/tags.opus" >"$work/info.txt"
expect_comments "$work/info.txt"
grep -q R128_TRACK_GAIN=-2102 "$work/info.txt" || fail "no gain in Opus's own unit"
expect_cover "$work/opus/tags.opus"
for mode in vbr cvbr cbr; do
    convert --to Opus --settings "-bitrate=\"64\" -mode=\"$mode\" -complexity=\"5\"" --out "$work/$mode" "$work/in/six.wav"
    expect_converted 1 0
    size=$(stat -c %s "$work/$mode/six.opus") # 2 s of 192 kbit/s
    [ "$size" -gt 30000 ] && [ "$size" -lt 75000 ] || fail "$mode gives $size bytes"
done
opusinfo "$work/cbr/six.opus" | grep hard-CBR >/dev/null || fail "cbr is not constant"

convert --to 'Ogg Vorbis' --out "$work/vorbis" "$work"/in/*
expect_converted 7 0
for row in cd:123457 high:200001 phone:12345 tiny:1 six:96001 eight:96001; do
    name=${row%:*}
    ogginfo "$work/vorbis/$name.ogg" >"$work/info.txt" || { fail "ogginfo refuses $name"; cat "$work/info.txt"; }
    oggdec -Q -o "$work/$name.wav" "$work/vorbis/$name.ogg"
    [ "$(soxi -s "$work/$name.wav")" = "${row#*:}" ] || fail "$name has $(soxi -s "$work/$name.wav") frames"
done
# oggdec leaves channels in Vorbis's order, ffmpeg puts them in that of wave files.
for name in six eight; do
    ffmpeg -v error -i "$work/vorbis/$name.ogg" -y "$work/$name.wav"
done
expect_tones "$work/six.wav" "${surround[@]}"
expect_tones "$work/eight.wav" "${surround[@]}" 1900 2200
vorbiscomment -R -l "$work/vorbis/tags.ogg" >"$work/info.txt"
expect_comments "$work/info.txt"
grep -q "REPLAYGAIN_TRACK_GAIN=-3.21 dB" "$work/info.txt" || fail "the gain is lost"
expect_cover "$work/vorbis/tags.ogg"
convert --to 'Ogg Vorbis' --settings '-abr="96"' --out "$work/abr" "$work/in/six.wav"
expect_converted 1 0
convert --to 'Ogg Vorbis' --settings '-quality="-1"' --out "$work/low" "$work/in/six.wav"
expect_converted 1 0
[ "$(stat -c %s "$work/low/six.ogg")" -lt "$(stat -c %s "$work/vorbis/six.ogg")" ] || fail "quality -1 is no smaller"
finish
