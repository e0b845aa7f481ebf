#!/usr/bin/env bash
# Folders and names come from the tags of real files, whatever their format, and as Windows takes them.
. "$(dirname "$0")/lib.sh"
mkdir "$work/in" "$work/in/Ordner"
sox -r 44100 -n -c 2 -b 16 "$work/tone.wav" synth 1 sine 440 vol 0.5
ffmpeg -v error -i "$work/tone.wav" -c:a aac -metadata album_artist='Ünï Ällstars' -metadata album='Späte Töne: Live?' \
    -metadata track=4/12 -metadata title='日本 <3>' "$work/in/m4a.m4a"
ffmpeg -v error -i "$work/tone.wav" -c:a vorbis -strict -2 -metadata album_artist='A\B' -metadata album='...And "So" On...' \
    -metadata track=5 -metadata title='One, [Live] & Two' "$work/in/ogg.ogg"
lame --quiet --tt 'Only a title.' "$work/tone.wav" "$work/in/mp3.mp3"
make() { # NAME TAGS...
    local name=$1
    shift
    flac -s -o "$work/in/$name.flac" "${@/#/-T}" "$work/tone.wav"
}
make first "ALBUMARTIST=Ünï Ällstars" "ALBUM=Späte Töne: Live?" TRACKNUMBER=3 TRACKTOTAL=12 "TITLE=Café/日本*"
long=$(printf 'x%.0s' $(seq 300))
make long ALBUMARTIST=L ALBUM=M TRACKNUMBER=10 "TITLE=$long"
make bare
make same1 ALBUMARTIST=S ALBUM=S TRACKNUMBER=1 TITLE=S
make same2 ALBUMARTIST=S ALBUM=S TRACKNUMBER=1 TITLE=S

out=$work/out
convert --to FLAC --naming '[album artist]\[album]\[track] - [title]' --out "$out" "$work"/in/*.*
expect_converted 8 0
for name in 'Ünï Ällstars/Späte Töne; Live¿/03 - Café-日本-' 'Ünï Ällstars/Späte Töne; Live¿/04 - 日本 «3»' \
    "A-B/And 'So' On/05 - One, [Live] & Two" ' - Only a title.' ' - bare' S/S/'01 - S'; do
    flac -ts "$out/$name.flac" || fail "no sound output $name.flac"
done
# As long as a path may be: 259 characters, in the folder of the run.
run_folder='C:\tonemill-job\out\'
name=$(cd "$out" && find L/M -name '10 - xxx*.flac')
[ $((${#run_folder} + ${#name})) = 259 ] || fail "the long name has ${#name} characters: $name"
expect_nothing_else "$out" 7

# Functions, the source's own folder, and what is known without tags.
cp "$work/in/first.flac" "$work/in/Ordner/süß.flac"
convert --to Wave --out "$out/f" "$work/in/Ordner/süß.flac" \
    --naming '[BACKFOLDER]1[]\[UPPER][IFVALUE]genre,x,[origfilename][][]\[length_mmss] [channels]ch [extension], [tags]artist,+[]'
expect_converted 1 0
[ -f "$out/f/Ordner/Süß/0.01 2ch wav,.wav" ] || { fail "functions"; find "$out/f"; }

# A name that Windows keeps for a device is told, and nothing is written.
make device TITLE=nul
convert --to FLAC --naming '[title]' --out "$out/.d" "$work/in/device.flac" && fail "a device was written to"
expect_converted 0 1
expect_nothing_else "$out/.d" 0
finish
