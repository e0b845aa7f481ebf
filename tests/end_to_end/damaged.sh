#!/usr/bin/env bash
# Real recordings in many formats, cut off and with turned bits at many places, through the real worker:
# each ends in time and in order, and what it writes is what other decoders hear in the same file.
# Usage: damaged.sh WORKER_FARM [PLACES]     PLACES: cuts and flips for each format (default 6; long: 100)
. "$(dirname "$0")/farm.sh"
places=${2:-6}
mkdir "$work/in" "$work/odd"
speech=/usr/share/sounds/alsa
sox -D -M $speech/Front_Left.wav $speech/Rear_Center.wav -b 16 "$work/two.wav" rate 44100 trim 0 1.3
sox -D $speech/Side_Right.wav -b 24 "$work/deep.wav" vol 0.7
sox -D "$work/deep.wav" -b 32 "$work/wide.wav" vol 0.9
ffmpeg -v error -f lavfi -i testsrc=s=120x120 -frames:v 1 "$work/cover.jpg"
in=$work/in
make() { ffmpeg -v error -i "$work/two.wav" -metadata title=Front -metadata artist=Voice "${@:2}" -y "$in/$1"; }
cp "$work/two.wav" "$in/plain.wav"
cp "$work/deep.wav" "$in/deep.wav"
make rf64.wav -rf64 always
make wave64.w64
make aiff.aiff -write_id3v2 1
make au.au
make caf.caf
make tta.tta
make alac.m4a -c:a alac
make aac.m4a -c:a aac -movflags +faststart
make stream.aac -c:a aac
make wma.wma -c:a wmav2
make matroska.mka -c:a flac
make layer2.mp2 -c:a mp2
make dolby.ac3 -c:a ac3
flac -s --picture="$work/cover.jpg" -T TITLE=Front -o "$in/flac.flac" "$work/two.wav"
flac -s -o "$in/wide.flac" "$work/wide.wav" 2>/dev/null # it has a word on the wave file
lame --quiet -b 128 --tt Front --ti "$work/cover.jpg" "$work/two.wav" "$in/cbr.mp3"
lame --quiet -V 3 "$work/two.wav" "$in/vbr.mp3"
lame --quiet -t -b 96 "$work/two.wav" "$in/bare.mp3" # tells no length
oggenc -Q -q 3 -t Front -o "$in/vorbis.ogg" "$work/two.wav"
opusenc --quiet --title Front --picture "$work/cover.jpg" "$work/two.wav" "$in/opus.opus"
wavpack -q -w Title=Front "$work/two.wav" -o "$in/wavpack.wv"

# What should never reach a decoder: most are refused, and wrong names are no matter.
odd=$work/odd
: >"$odd/empty.wav"
printf 'These are words.\n' >"$odd/words.flac"
gzip -nc $speech/Noise.wav | tail -c +5000 | head -c 20000 >"$odd/noise.mp3"
mkdir "$odd/folder.wav"
head -c 40000 "$in/caf.caf" >"$odd/short.caf" # between two frames, where no decoder stumbles
sed 's/mp4a/drms/g' "$in/aac.m4a" >"$odd/protected.m4a"
sed 's/mp4a/enca/g' "$in/aac.m4a" >"$odd/encrypted.m4a"
cp "$work/cover.jpg" "$odd/picture.wav"
for row in plain.wav:right1.mp3 cbr.mp3:right2.wav vorbis.ogg:right3.flac flac.flac:right4.ogg alac.m4a:right5.wma; do
    cp "$in/${row%:*}" "$odd/${row#*:}"
done
seq -f 'KEY1=%05g' 20000 >"$work/many.txt" # more of a tag than is read
cp "$in/flac.flac" "$odd/right6.flac"
metaflac --import-tags-from="$work/many.txt" "$odd/right6.flac"
run_farm Wave "$work/runs-odd" 0 0 "$odd"/* "$odd/missing.wav"
while IFS=$'\t' read -r -u 3 name _ _ state _; do
    [[ $name == right* ]] && wanted=written || wanted=nothing
    [ "$state" = "$wanted" ] || fail "$name: $state"
    [ "$state" = nothing ] || [ "$(soxi -s "$work/runs-odd/written/$name.wav")" = "$(frames "$odd/$name")" ] || fail "$name: length"
done 3<"$work/runs-odd/rows.txt"
grep -q '^right6.*Not all tags of the source could be read: too many or too long are key1' "$work/runs-odd/rows.txt" ||
    fail "tags are left out without a word"

run_farm Wave "$work/runs" "$places" "$places" "$in"/*

# Of what was written: whole files, cut files that lost no audio, and what ffmpeg hears as well.
# Formats that tell their length never come out short. A checksum lets no turned bit through.
judge() { # NAME INFORMATION
    local name=$1 extension=${1##*.} whole copy output=$work/runs/written/$1.wav hash
    whole=$work/runs/written/${name%%~*}
    [[ $name == *~* ]] && whole+=.$extension.wav || whole=$in/$name
    copy=$work/runs/damaged/$name
    hash=$(pcm_hash "$output")
    if [[ $name != *~* ]]; then
        [[ $name == wide.flac ]] && whole=$work/wide.wav # which ffmpeg can't read
        [ "$hash" = "$(pcm_hash "$whole")" ] || [ "$(soxi -s "$output")" = "$(frames "$whole")" ] || echo "$name: length"
        return
    fi
    [ "$hash" = "$(pcm_hash "$whole")" ] && return
    local got heard
    got=$(soxi -s "$output")
    heard=$(ffmpeg -v quiet -i "$copy" -map 0:a:0 -f s16le -ac 1 - | wc -c | awk '{print $1 / 2}')
    case $name in
    plain~cut* | deep~cut* | rf64~cut* | wave64~cut* | aiff~cut* | au~cut* | caf~cut* | tta~cut* | alac~cut* | flac~cut* | wide~cut* | wavpack~cut*)
        echo "$name: cut, and $got of $(soxi -s "$whole") frames came out" ;;
    flac~flip* | wide~flip* | wavpack~flip* | tta~flip*)
        echo "$name: other audio than before, in spite of its checksum" ;;
    *)
        [ "$got" = "$heard" ] || echo "$name: $got frames, ffmpeg hears $heard (whole: $(soxi -s "$whole")) $2"
        # These tell a length or an end; a short rest is told, if it is longer than what encoders pad with.
        [[ ! $name =~ ^(cbr|vbr|vorbis|opus|aac|wma|matroska)~cut || -n $2 ]] || [ $((got + 4000)) -ge "$(soxi -s "$whole")" ] ||
            echo "$name: cut to $got of $(soxi -s "$whole") frames without a word" ;;
    esac
}
export -f judge pcm_hash frames
export work in
awk -F '\t' '$4 == "written" && $2 == 0 { print $1; print $6 }' "$work/runs/rows.txt" |
    xargs -d '\n' -n 2 -P 2 bash -c 'judge "$@"' _ >"$work/faults.txt" 2>&1
fail_lines "$work/faults.txt"

awk -F '\t' '{ kind = $1 ~ /~cut/ ? "cut" : $1 ~ /~flip/ ? "flipped" : "whole"; ++n[kind]; written[kind] += $4 == "written"
        slowest = $3 > slowest ? $3 : slowest }
    END { for (kind in n) print n[kind], kind, "of them written:", written[kind]; print "slowest", slowest, "ms" }' "$work/runs/rows.txt"
finish
