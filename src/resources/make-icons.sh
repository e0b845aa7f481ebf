#!/usr/bin/env bash
# Draws the program's icons with ImageMagick: make-icons.sh FOLDER
set -e
out=$1
mkdir -p "$out"

# Sound bars in a blue disc; $1 is the edge in pixels, $2 the disc's colour.
draw() {
    local n=$1 colour=$2
    convert -size 256x256 xc:none \
        -fill "$colour" -draw 'circle 128,128 128,8' \
        -fill '#ffffff' \
        -draw 'roundrectangle 58,108 80,148 8,8' \
        -draw 'roundrectangle 94,76 116,180 8,8' \
        -draw 'roundrectangle 130,52 152,204 8,8' \
        -draw 'roundrectangle 166,92 188,164 8,8' \
        -filter Lanczos -resize "${n}x${n}" "$3"
}

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
for n in 16 32 48; do
    draw $n '#2f6db5' "$work/program$n.png"
done
convert "$work/program16.png" "$work/program32.png" "$work/program48.png" "$out/program.ico"

# A chip with its pins: one worker.
for n in 16 32; do
    convert -size 256x256 xc:none -fill '#8a98a8' \
        -draw 'rectangle 16,72 240,88' -draw 'rectangle 16,120 240,136' -draw 'rectangle 16,168 240,184' \
        -draw 'rectangle 72,16 88,240' -draw 'rectangle 120,16 136,240' -draw 'rectangle 168,16 184,240' \
        -fill '#2f6db5' -draw 'roundrectangle 48,48 208,208 16,16' \
        -fill '#bcd6f2' -draw 'rectangle 88,88 168,168' \
        -filter Lanczos -resize "${n}x${n}" "$work/slot$n.png"
done
convert "$work/slot16.png" "$work/slot32.png" "$out/slot.ico"
