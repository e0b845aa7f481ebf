#!/usr/bin/env bash
# Files that authors of tag libraries made for their tests, many broken on purpose, from Debian's source
# packages: each becomes a sound output with the tags that a foreign reader finds in it, or is told as failed.
# With TM_TAG_FILES=all more collections, and all files through all encoders; that takes some minutes.
. "$(dirname "$0")/lib.sh"
downloads=$(realpath -m "${TONEMILL_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/tonemill}")/downloads
extensions='mp3|mp2|m4a|m4b|mp4|3g2|aac|flac|ogg|oga|opus|spx|wav|aif|aiff|aifc|wma|asf|wv|ape|tta|mpc|dsf|dff'
mkdir -p "$downloads" "$work/in"

collect() { # PACKAGE VERSION FEWEST-FILES
    local archive
    exec 8>"$downloads/../codecs.lock"
    flock 8
    archive=$(ls "$downloads/$1"_"$2"*.orig.tar.* 2>/dev/null | grep -v '\.asc$' | head -n 1)
    if [ -z "$archive" ]; then
        printf 'tags %s %s plain\n' "$1" "$2" >"$work/list"
        bash "$root/scripts/codecs/fetch.sh" "$downloads" "$work/list" >"$work/fetch.log" 2>&1 ||
            { fail "fetching $1"; tail -n 5 "$work/fetch.log"; }
        archive=$(ls "$downloads/$1"_"$2"*.orig.tar.* 2>/dev/null | grep -v '\.asc$' | head -n 1)
    fi
    exec 8>&-
    [ -n "$archive" ] || return
    mkdir "$work/$1"
    tar -xf "$archive" -C "$work/$1"
    local file name count=0
    while IFS= read -r file; do
        name=$(basename "$file")
        cp "$file" "$work/in/$1-${name//./_}.${name##*.}" # unique without its extension, too
        count=$((count + 1))
    done < <(find "$work/$1" -type f | grep -Ei "\.($extensions)\$" | sort)
    [ "$count" -ge "$3" ] || fail "$1 brings $count files, not $3"
}
compare_tags() { # EXTENSION
    sed -n 's/^written  //p' "$work/convert.log" | while IFS= read -r output; do
        name=$(basename "${output%.*}")
        printf '%s\t%s\n' "$(ls "$work/in/$name".*)" "$output"
    done >"$work/pairs"
    # What the foreign reader joins in another way than players do.
    /usr/bin/python3 "$root/tests/end_to_end/read_tags.py" "$1" <"$work/pairs" >"$work/differences"
    grep -vE "$known" "$work/differences" && fail "tags differ in $1 files"
}
# The reader takes one ID3v2 tag of two, one comment block of two, and an atom that is no full one for none;
# it mends a picture at a wrong place and reads what stands behind one; and it reads a date out of words.
known='taglib-(duplicate_id3v2|multiple-vc|non-full-meta)_'
known+='|perl-(v2_3-unsync-apic-bad-offset|bug17355-picture-offset|bug905)_'

collect taglib 1.13 80
least=50
all=
if [ "${TM_TAG_FILES:-}" = all ]; then
    all=1
    collect quodlibet 4 25
    collect libaudio-scan-perl 1 150
    least=150
fi
files=$(find "$work/in" -type f | wc -l)
convert --to FLAC --out "$work/flac" "$work"/in/*
done=$(grep -c '^written ' "$work/convert.log")
lost=$(grep -c '^failed ' "$work/convert.log")
[ $((done + lost)) = "$files" ] || fail "$files sources, $done outputs, $lost errors"
[ "$done" -ge $least ] || { fail "only $done of $files converted"; grep -A 1 '^failed' "$work/convert.log"; }
expect_nothing_else "$work/flac" "$done"
for output in "$work"/flac/*; do
    flac -ts "$output" || fail "$output"
done
compare_tags flac
sources=()
while IFS=$'\t' read -r source output; do
    # Those with tags; audio without any tells nothing new.
    [ -z "$all" ] && [ "$(metaflac --export-tags-to=- "$output" | wc -l)" -lt 3 ] || sources+=("$source")
done <"$work/pairs"
[ ${#sources[@]} -ge 10 ] || fail "only ${#sources[@]} sources have tags"
for target in 'mp3 (Lame):mp3' 'm4a AAC:m4a' 'Opus:opus' 'WavPack:wv' ${all:+'Wave:wav' 'Ogg Vorbis:ogg' 'AIFF:aiff'}; do
    convert --to "${target%:*}" --out "$work/${target#*:}" "${sources[@]}"
    grep -A 1 '^failed' "$work/convert.log" && fail "${target%:*} fails where FLAC succeeds"
    compare_tags "${target#*:}"
done
finish
