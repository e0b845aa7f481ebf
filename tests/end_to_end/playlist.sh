#!/usr/bin/env bash
# The playlist of a batch: outputs in the order of the sources, failed ones left out, audio untouched.
. "$(dirname "$0")/lib.sh"
mkdir "$work/in"
sox -r 44100 -n -c 2 -b 16 "$work/tone.wav" synth 1 sine 440 vol 0.5
# The first is the last to be done when several are converted at once.
sox -r 44100 -n -c 2 -b 16 "$work/in/1.wav" synth 120 sine 330 vol 0.5
cp "$work/tone.wav" "$work/in/2 süß.wav"
head -c 1000 /dev/urandom >"$work/in/3 broken.flac"
flac -s -o "$work/in/4.flac" -TARTIST=Ä -TTITLE=#4 "$work/tone.wav"

out=$work/out
convert --to FLAC --out "$out" --effect 'Playlist Writer=' "$work"/in/*
expect_converted 3 1
printf '#EXTM3U\r\n1.flac\r\n2 süß.flac\r\n4.flac\r\n' | cmp - "$out/Playlist.m3u8"  || fail "the playlist differs"
expect_same_audio "$work/tone.wav" "$out/2 süß.flac"
expect_nothing_else "$out" 4

# In folders by tags, with a name of its own in a folder beside them, and after a second effect.
convert --to FLAC --out "$out/n" --naming '[artist]\[title]' "$work/in/4.flac" "$work/in/2 süß.wav" \
    --effect 'Batch Report=' --effect 'Playlist Writer=-file="lists\a b"'
expect_converted 2 0
printf '#EXTM3U\r\n..\\2 süß.flac\r\n..\\Ä\\#4.flac\r\n' >"$work/expected"
cmp "$work/expected" "$out/n/lists/a b.m3u8" || { fail "the named playlist differs"; find "$out/n"; }

convert --to FLAC --out "$out/a" --effect 'Playlist Writer=-absolute -file="#"' "$work/in/4.flac"
printf '#EXTM3U\r\nC:\\tonemill-job\\out\\4.flac\r\n' | cmp - "$out/a/#.m3u8" || fail "the absolute playlist differs"
finish
