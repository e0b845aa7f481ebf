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
# Covers whose kind stands there in unusual words, or not at all; and texts beyond those that everybody reads.
mkdir "$work/covers"
for ending in mp3 m4a wma wv ogg flac; do ffmpeg -v error -i "$work/tone.wav" "$work/tone.$ending"; done
/usr/bin/python3 - "$work" <<'PYTHON'
import base64, shutil, struct, sys
from mutagen.apev2 import APEv2, APEBinaryValue
from mutagen.asf import ASF, ASFByteArrayAttribute
from mutagen.flac import FLAC, Picture
from mutagen.id3 import APIC, ID3, TIPL
from mutagen.mp4 import MP4, MP4Cover
from mutagen.oggvorbis import OggVorbis
work = sys.argv[1]
cover = open(work + '/cover.jpg', 'rb').read()
def copy(name, ending):
    return shutil.copy(f'{work}/tone.{ending}', f'{work}/covers/{name}.{ending}')
def picture(mime):
    block = Picture()
    block.type, block.mime, block.data = 3, mime, cover
    return block
for name, mime in ('id3-none', ''), ('id3-half', 'image/'), ('id3-old', 'image/pjpeg'), ('id3-usual', 'image/jpeg'):
    tag = ID3()
    tag.add(APIC(3, mime, 3, 'd', cover))
    tag.add(TIPL(3, [['producer', 'Pro'], ['mix', 'Mixer']]))
    tag.save(copy(name, 'mp3'))
mp4 = MP4(copy('mp4-none', 'm4a'))
mp4['covr'] = [MP4Cover(cover, 0)]
mp4['ldes'], mp4['\xa9nrt'], mp4['----:com.apple.iTunes:Own'] = 'Long', 'Reader', [b'free']
mp4.save()
flac = FLAC(copy('flac-old', 'flac'))
flac.add_picture(picture('image/pjpeg'))
flac.save()
ogg = OggVorbis(copy('ogg-none', 'ogg'))
ogg['metadata_block_picture'] = [base64.b64encode(picture('').write()).decode()]
ogg.save()
asf = ASF(copy('asf-old', 'wma'))
texts = 'image/pjpeg\0d\0'.encode('utf-16-le')
asf['WM/Picture'] = [ASFByteArrayAttribute(struct.pack('<bi', 3, len(cover)) + texts + cover)]
asf['Author'], asf['Own'] = ['First', 'Second'], ['free']
asf.save()
ape = APEv2()
ape['Cover Art (Front)'] = APEBinaryValue(b'\0' + cover)
ape.save(copy('ape-none', 'wv'))
PYTHON
metaflac --set-tag=TITLE=Fine --set-tag=ARTIST=KXnstler "$work/covers/flac-old.flac"
LC_ALL=C sed -i 's/KXnstler/K\xFCnstler/' "$work/covers/flac-old.flac" # in a code page, which nobody allows
convert --to FLAC --out "$work/covered" "$work"/covers/*
expect_converted 9 0
for flac in "$work"/covered/*.flac; do
    metaflac --export-picture-to="$work/back.jpg" "$flac"
    cmp "$work/cover.jpg" "$work/back.jpg" || fail "the cover of $flac"
    [ "$(metaflac --list --block-type=PICTURE "$flac" | grep -c 'type: 6')" = 1 ] || fail "covers of $flac"
done
expect_all() { # FILE TAGS, sorted
    local tags
    tags=$(metaflac --export-tags-to=- "$work/covered/$1.flac" | sort | paste -sd '|')
    [ "$tags" = "$2" ] || fail "$1 has $tags"
}
expect_all flac-old 'ARTIST=Künstler|TITLE=Fine'
expect_all id3-usual 'MIXER=Mixer|PRODUCER=Pro'
expect_all mp4-none 'NARRATOR=Reader|OWN=free|SYNOPSIS=Long'
expect_all asf-old 'ARTIST=First|ARTIST=Second|OWN=free'
[ "$(metaflac --show-tag=DATE "$same")" = "DATE=1999-05-01" ] || fail "$(metaflac --show-tag=DATE "$same")"
finish
