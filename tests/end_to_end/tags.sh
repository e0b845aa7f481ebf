#!/usr/bin/env bash
# Tags and cover art travel: from FLAC to mp3 and on, accents, several values, names of all scripts.
. "$(dirname "$0")/lib.sh"
mkdir "$work/in"
sox -r 44100 -n -c 2 -b 16 "$work/tone.wav" synth 2 sine 440 vol 0.5
ffmpeg -v error -f lavfi -i testsrc=s=300x300 -frames:v 1 "$work/cover.jpg"
source="$work/in/Ünïcødé – 日本語 & 'quote'.flac"
flac -s -o "$source" -T "TITLE=Café – 日本" -T "ARTIST=Erste" -T "ARTIST=Zweite" -T "ALBUM=Alb: um" \
    -T "TRACKNUMBER=3" -T "TRACKTOTAL=12" -T "DATE=1999-05-01" -T "YEAR=1999" -T "GENRE=Jazz" \
    -T "COMPOSER=Någon" -T $'COMMENT=one\r\ntwo' -T $'LYRICS=la\nla\rla' \
    -T "REPLAYGAIN_TRACK_GAIN=-3.21 dB" --picture="3|image/jpeg|Front||$work/cover.jpg" "$work/tone.wav"

convert --to 'mp3 (Lame)' --out "$work/mp3" "$source"
expect_converted 1 0
mp3="$work/mp3/$(basename "${source%.flac}").mp3"
expect_tag "$mp3" title "Café – 日本"
expect_tag "$mp3" album "Alb: um"
expect_tag "$mp3" track 3/12
expect_tag "$mp3" genre Jazz
expect_tag "$mp3" composer Någon
expect_tag "$mp3" date 1999-05-01
expect_tag "$mp3" artist Erste # ffprobe shows the first of several; the way back shows both

convert --to FLAC --out "$work/flac" "$mp3"
expect_converted 1 0
flac="$work/flac/$(basename "$source")"
[ "$(metaflac --show-tag=ARTIST "$flac" | tr '\n' ' ')" = "ARTIST=Erste ARTIST=Zweite " ] ||
    fail "artists: $(metaflac --show-tag=ARTIST "$flac")"
metaflac --export-picture-to="$work/back.jpg" "$flac"
cmp "$work/cover.jpg" "$work/back.jpg" || fail "the cover changed on its way"
[ "$(metaflac --show-tag=TITLE "$flac")" = "TITLE=Café – 日本" ] || fail "title of $flac"

convert --to FLAC --out "$work/same" "$source"
expect_converted 1 0
same="$work/same/$(basename "$source")"
for text in COMMENT:one:two LYRICS:la:la:la; do # of several lines, and still one value
    [ "$(metaflac --show-tag="${text%%:*}" "$same")" = "$(printf %s "${text/:/=}" | tr : '\n')" ] ||
        fail "$(metaflac --show-tag="${text%%:*}" "$same")"
done
[ "$(metaflac --show-tag=DATE "$same")" = "DATE=1999-05-01" ] || fail "$(metaflac --show-tag=DATE "$same")"
finish
