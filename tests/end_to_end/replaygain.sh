#!/usr/bin/env bash
# Gains and peaks of tracks and albums in the tags of all formats, as ffmpeg's meter and tools that are
# not ours have them; audio, cover and other tags are those of a conversion without the effect.
. "$(dirname "$0")/lib.sh"
mkdir "$work/in"
loudness() { # FILE: LUFS
    ffmpeg -v error -i "$1" -map 0:a -af ebur128=metadata=1,ametadata=print:key=lavfi.r128.I:file=- -f null - |
        sed -n 's/^lavfi.r128.I=//p' | tail -n 1
}
# All tags of container and stream, as ffprobe reads them; of a Wave file's ID3 chunk it reads nothing
# beside a LIST chunk, so own texts are taken from the bytes.
read_tags() { # FILE
    ffprobe -v error -show_entries format_tags:stream_tags -of default=nw=1 "$1" | sed -n 's/^TAG://p' | sort
    [[ $1 != *.wav ]] || tail -c 5000 "$1" | tr '\0' '\n' |
        LC_ALL=C awk '/^replaygain_/ { key = $0; getline; sub(/TXXX.*/, ""); print key "=" $0 }'
}
field() { sed -n "s/^$1=//Ip" "$work/tags" | head -n 1; } # KEY of the file whose tags were read last
other_tags() { grep -aEiv '^(replaygain|r128)_' "$1"; }
cover_hash() { ffmpeg -v error -i "$1" -map 0:v:0 -c copy -f image2pipe - 2>&1 | md5sum; }
expect_near() { # VALUE WANTED FAR WHAT
    awk -v a="${1:-x}" -v b="$2" -v far="$3" 'BEGIN { exit !(a ~ /^-?[0-9.]+$/ && a - b <= far && b - a <= far) }' ||
        fail "$4 is '$1', not $2"
}
# Of the file whose tags were read last: NAME for messages, track|album, LUFS, peak
expect_gain() {
    if [[ $1 == *.opus ]]; then # has no names for peaks
        expect_near "$(field "r128_$2_gain" | awk '{print $1 / 256 + 5}')" "$(awk -v l="$3" 'BEGIN { print -18 - l }')" \
            0.1 "$2 gain of $1"
        return
    fi
    [[ $(field "replaygain_$2_gain") =~ ^(-?[0-9]+\.[0-9][0-9])\ dB$ ]] || fail "no $2 gain in $1"
    expect_near "${BASH_REMATCH[1]:-}" "$(awk -v l="$3" 'BEGIN { print -18 - l }')" 0.1 "$2 gain of $1"
    expect_near "$(field "replaygain_$2_peak")" "$4" "${5:-0.00005}" "$2 peak of $1"
}
expect_no_gain() { # NAME track|album
    [ -z "$(field "replaygain_$2_gain")$(field "replaygain_$2_peak")$(field "r128_$2_gain")" ] ||
        fail "$1 has a gain of the $2"
}

# Recordings of speech and noise, one far below the others, long enough that the joints do not count.
ffmpeg -v error -f lavfi -i testsrc=s=300x300 -frames:v 1 "$work/cover.jpg"
source() { # NAME RECORDING VOLUME TAG...
    local name=$1 recording=$2 volume=$3
    shift 3
    sox -D -v "$volume" "/usr/share/sounds/alsa/$recording.wav" "$work/$name.wav" repeat 10
    flac -s -o "$work/in/$name.flac" "${@/#/--tag=}" --tag=ARTIST=Erste --tag=ARTIST=Zweite \
        --tag=TRACKNUMBER=3/12 --tag="TITLE=Café – 日本" --tag="REPLAYGAIN_TRACK_GAIN=-99.00 dB" \
        --tag="REPLAYGAIN_ALBUM_GAIN=-99.00 dB" --tag=REPLAYGAIN_ALBUM_PEAK=9 \
        --picture="3|image/jpeg|Front||$work/cover.jpg" "$work/$name.wav"
}
source loud Front_Center 1.9 ALBUM=Älbum "ALBUM ARTIST=x"
source quiet Noise 0.4 ALBUM=ÄLBUM "ALBUM ARTIST=X"
source single Rear_Left 1
sox -D -n -r 48000 -c 1 -b 16 "$work/silent.wav" trim 0 5
flac -s -o "$work/in/silent.flac" --tag=ALBUM=ÄLBUM --tag="ALBUM ARTIST=X" --picture="$work/cover.jpg" "$work/silent.wav"
head -c 40000 "$work/in/loud.flac" >"$work/in/broken.flac"
sox "$work"/{loud,quiet}.wav "$work/album.wav"
declare -A lufs peak
for name in loud quiet single album; do
    lufs[$name]=$(loudness "$work/$name.wav")
    peak[$name]=$(sox "$work/$name.wav" -n stat 2>&1 | awk '/^(Max|Min)imum amp/ { v = $3 < 0 ? -$3 : $3; if (v > m) m = v } END { print m }')
done

for row in FLAC:flac 'mp3 (Lame):mp3' 'm4a AAC:m4a' 'Ogg Vorbis:ogg' Opus:opus WavPack:wv AIFF:aiff Wave:wav; do
    to=${row%:*} end=${row#*:}
    convert --to "$to" --out "$work/plain/$end" "$work"/in/*.flac
    convert --to "$to" --out "$work/gain/$end" --effect 'ReplayGain=' "$work"/in/*.flac
    expect_converted 4 1
    expect_nothing_else "$work/gain/$end" 4
    for name in loud quiet single silent; do
        file=$work/gain/$end/$name.$end plain=$work/plain/$end/$name.$end
        expect_same_audio "$plain" "$file"
        [ "$(cover_hash "$file")" = "$(cover_hash "$plain")" ] || fail "the cover of $file is another"
        read_tags "$plain" >"$work/plain_tags"
        read_tags "$file" >"$work/tags"
        diff <(other_tags "$work/plain_tags") <(other_tags "$work/tags") || fail "other tags of $file"
        if [ $name = silent ]; then
            expect_no_gain "$file" track
        else
            expect_gain "$file" track "${lufs[$name]}" "${peak[$name]}"
        fi
        if [ $name = single ]; then
            expect_no_gain "$file" album
        else
            expect_gain "$file" album "${lufs[album]}" "${peak[album]}"
        fi
    done
done
flac -ts "$work"/gain/flac/*.flac || fail "flac refuses an output"
wvunpack -qv "$work"/gain/wv/*.wv || fail "wvunpack refuses an output"
for file in "$work"/gain/ogg/*.ogg; do
    ogginfo "$file" >"$work/info.txt" || { fail "ogginfo refuses $file"; cat "$work/info.txt"; }
done

# What Opus calls them comes back under the usual names.
convert --to FLAC --out "$work/back" "$work/gain/opus/loud.opus"
read_tags "$work/back/loud.flac" >"$work/tags"
for row in track:loud album:album; do
    expect_near "$(field "replaygain_${row%:*}_gain" | sed 's/ dB$//')" \
        "$(awk -v l="${lufs[${row#*:}]}" 'BEGIN { print -18 - l }')" 0.1 "the gain of the ${row%:*} out of Opus"
done
grep -i r128 "$work/tags" && fail "Opus's gains are in a FLAC file"

# By folder, with the peak between samples, which is some higher; and without album.
convert --to FLAC --out "$work/folder" --effect 'ReplayGain=-album="folder" -peak="true"' "$work/in/loud.flac" \
    "$work/in/single.flac"
sox "$work"/{loud,single}.wav "$work/both.wav"
true_peak=$(ffmpeg -nostats -i "$work/loud.wav" -af ebur128=peak=true -f null - 2>&1 |
    awk '$1 == "Peak:" { print 10 ^ ($2 / 20) }' | tail -n 1)
read_tags "$work/folder/single.flac" >"$work/tags"
expect_gain single.flac album "$(loudness "$work/both.wav")" "$true_peak" 0.02
convert --to FLAC --out "$work/off" --effect 'ReplayGain=-album="off"' "$work/in/loud.flac"
read_tags "$work/off/loud.flac" >"$work/tags"
expect_gain loud.flac track "${lufs[loud]}" "${peak[loud]}"
expect_no_gain loud.flac album
finish
