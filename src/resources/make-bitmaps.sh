#!/usr/bin/env bash
# Draws the program's bitmaps: make-bitmaps.sh FOLDER.
set -e
. "$(dirname "$0")/draw.sh"
out=$1
mkdir -p "$out"

# ---- The picture of the overwrite form: one file before another, and a warning

Sheet() {
    Box "$1" "$2" $(($1 + 80)) $(($2 + 105)) 0 'url(#paper)' "$edge"
    local line
    for line in 20 35 50 65; do
        Bar $(($1 + 15)) $(($2 + line)) $(($1 + 65)) $(($2 + line + 5)) "$mist"
    done
}

Review() {
    Sheet 5 5
    Sheet 40 25
    Shape 'url(#amber)' '#B98A35' 6 "path 'M 108,68 L 153,153 L 63,153 Z'"
    Line "$ink" 10 'line 108,98 108,122'
    Fill "$ink" 'circle 108,138 108,132'
}

# ---- Strips that show what a choice of naming does, for 192 dots per inch

Tag() {
    Shape 'url(#sky)' "$deep" 10 "path 'M 15,35 L 95,35 L 145,80 L 95,125 L 15,125 Z'"
    Fill "$deep" 'circle 105,80 105,68'
    Bar 30 60 80 70 "$deep"
    Bar 30 90 80 100 "$deep"
}

Note() {
    Box 20 10 130 150 0 'url(#paper)' "$edge"
    Line "$deep" 10 'line 90,40 90,105' "path 'M 90,40 C 95,55 110,55 108,75'"
    Fill "$deep" 'ellipse 76,108 18,14 0,360'
}

Arrow() {
    Line "$mist" 16 'line 25,80 125,80' "path 'M 90,45 L 128,80 L 90,115'"
}

Hint() {
    local file=$1 x=0 draw parts=()
    shift
    for draw in "$@"; do
        Picture $draw 32
        parts+=("${picture[@]}" -geometry +$x+4 -composite)
        ((x += 40))
    done
    WriteBitmap "$file" -size 152x40 "xc:$face" "${parts[@]}"
}

# ---- Progress bars: width and height at 96 dots per inch, here at another density

# MulDiv, rounded half up.
Scaled() {
    echo $((($1 * $2 + 48) / 96))
}

# ProgressBar FILE WIDTH HEIGHT DPI FRAME TOP BOTTOM SHINE: rounded ends, a hairline frame, a gradient.
ProgressBar() {
    local file=$1 width height line=$(($4 / 96)) smooth=8
    width=$(Scaled $2 $4)
    height=$(Scaled $3 $4)
    local right=$((width * smooth - 1)) bottom=$((height * smooth - 1)) inset=$((line * smooth))
    local round=$((height * smooth * 2 / 5))
    local inner=$((round - inset))
    WriteBitmap "$file" -size $((width * smooth))x$((height * smooth)) \
        '(' xc:none -fill "$5" -draw "roundrectangle 0,0 $right,$bottom $round,$round" ')' \
        '(' "gradient:$6-$7" '(' xc:black -fill white \
            -draw "roundrectangle $inset,$inset $((right - inset)),$((bottom - inset)) $inner,$inner" ')' \
            -alpha off -compose CopyOpacity -composite ')' \
        -compose Over -composite -filter box -resize ${width}x${height}!
}

Run Hint "$out/hint_dynamic.bmp" Tag Arrow Folder Note
Run Hint "$out/hint_folder.bmp" Note Arrow Folder Note
SetSize 32
Picture Review 32
Run WriteBitmap "$out/review.bmp" "${picture[@]}"
for dpi in 96 120 144 192; do
    Run ProgressBar "$out/bar_empty_$dpi.bmp" 489 17 $dpi '#C3CCD6' '#EDEFF2' '#FAFBFC'
    Run ProgressBar "$out/bar_full_$dpi.bmp" 489 17 $dpi "$pen" '#DDEBFD' '#93BFF0'
    Run ProgressBar "$out/row_empty_$dpi.bmp" 402 14 $dpi '#C3CCD6' '#EDEFF2' '#FAFBFC'
    Run ProgressBar "$out/row_full_$dpi.bmp" 402 14 $dpi "$pen" '#DDEBFD' '#93BFF0'
done
Finish
