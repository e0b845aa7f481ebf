#!/usr/bin/env bash
# Draws the icon of a plug-in: make-plugin-icon.sh PICTURE FILE. Encoders are tiles, each with a colour
# of its own, effects are things. A picture is a function below.
set -e
. "$(dirname "$0")/draw.sh"

# Tile GRADIENT FRAME
Tile() {
    Box 10 10 150 150 24 "url(#$1)" "$2"
}

Wave() {
    Tile blue "$deep"
    Line white $((n <= 20 ? 14 : 11)) \
        "path 'M 32,80 C 40,30 52,30 62,62 L 78,104 C 90,140 98,118 104,92 C 110,68 120,62 128,80'"
}

# A staircase up to the largest numbers, first byte first.
Aiff() {
    Tile slate '#54677B'
    local x width top
    while read -r x width top; do
        Bar $x $top $((x + width)) 130 white
    done <<< $'30 20 110\n55 20 85\n80 20 60\n105 25 35'
}

# The wave, twice as wide.
Wave64() {
    Tile blue "$deep"
    Line white $((n <= 20 ? 13 : 10)) \
        "path 'M 26,64 C 32,34 44,34 52,64 C 60,94 72,94 80,64 C 88,34 100,34 108,64 C 116,94 128,94 134,64'" \
        "path 'M 26,108 C 32,78 44,78 52,108 C 60,138 72,138 80,108 C 88,78 100,78 108,108 C 116,138 128,138 134,108'"
}

# A glass over a tick.
TestConversion() {
    Tile amber '#B98A35'
    Line white $((n <= 20 ? 16 : 13)) 'ellipse 70,70 38,38 0,360' 'line 98,98 132,132'
    Line white $((n <= 20 ? 13 : 10)) "path 'M 54,70 L 66,84 L 88,56'"
}

# Bars, closely packed.
Flac() {
    Tile teal '#2B7068'
    local x width top
    while read -r x width top; do
        Bar $x $top $((x + width)) $((160 - top)) white
    done <<< $'30 10 65\n50 10 45\n70 20 30\n100 10 50\n120 10 65'
}

# Sound in a shell that is smaller.
Aac() {
    Tile grey '#9A9A9A'
    Line "$deep" $((n <= 20 ? 14 : 11)) 'line 80,36 80,124' 'line 56,56 56,104' 'line 104,56 104,104' \
        'line 32,70 32,90' 'line 128,70 128,90'
}

# A bar that comes out as long as it went in.
Alac() {
    Tile grey '#9A9A9A'
    Bar 25 60 135 100 "$deep"
    Line "$deep" $((n <= 20 ? 13 : 10)) 'line 80,20 80,46' 'line 80,114 80,140' "path 'M 66,34 L 80,48 L 94,34'" \
        "path 'M 66,126 L 80,112 L 94,126'"
}

Mp3() {
    Tile violet '#5A4C9A'
    Line white 12 'line 65,50 65,112' 'line 117,40 117,102'
    Fill white "path 'M 59,46 L 123,32 L 123,56 L 59,70 Z'" 'ellipse 53,114 18,14 0,360' \
        'ellipse 105,104 18,14 0,360'
}

# A spectrum, loud below and soft above.
Vorbis() {
    Tile amber '#B98A35'
    Fill white "path 'M 26,130 L 26,52 C 46,28 60,34 72,62 C 84,88 104,78 134,116 L 134,130 Z'"
}

# Bars packed tightly into a frame.
WavPack() {
    Tile green '#4C7E38'
    local x
    Line white $((n <= 20 ? 11 : 8)) "path 'M 52,34 L 32,34 L 32,126 L 52,126'" \
        "path 'M 108,34 L 128,34 L 128,126 L 108,126'"
    for x in 50 70 90; do
        Bar $((x + 5)) $((x == 70 ? 40 : 60)) $((x + 15)) $((x == 70 ? 120 : 100)) white
    done
}

# Rings of a voice.
Opus() {
    Tile rose '#9A4468'
    Fill white 'ellipse 44,80 14,14 0,360'
    Line white $((n <= 20 ? 14 : 11)) "path 'M 68,50 A 40,40 0 0 1 68,110'" "path 'M 92,30 A 66,66 0 0 1 92,130'"
}

Report() {
    Box 20 10 130 150 0 'url(#paper)' "$edge"
    local y
    for y in 30 50 70; do
        Bar 40 $y 110 $((y + 10)) "$mist"
    done
    Line white 34 "path 'M 72,112 L 96,134 L 138,86'"
    Line '#378E85' 20 "path 'M 72,112 L 96,134 L 138,86'"
}

Playlist() {
    local y
    for y in 20 60 100; do
        Bar 10 $y 30 $((y + 20)) "$deep"
    done
    Bar 40 20 150 40 "$mist"
    Bar 40 60 90 80 "$mist"
    Bar 40 100 70 120 "$mist"
    Line "$deep" 12 'line 122,60 122,122' "path 'M 122,60 C 126,76 146,78 146,98'"
    Fill "$deep" 'ellipse 105,124 21,17 0,360'
}

Channels() {
    Box 10 40 60 120 8 'url(#paper)' "$edge"
    Box 100 40 150 120 8 'url(#paper)' "$edge"
    Line "$deep" $((n <= 20 ? 14 : 11)) "path 'M 30,62 L 130,62 M 108,40 L 132,62 L 108,84'"
    Line '#C94842' $((n <= 20 ? 14 : 11)) "path 'M 130,104 L 30,104 M 52,82 L 28,104 L 52,126'"
}

DeleteSource() {
    Box 20 10 110 130 0 'url(#paper)' "$edge"
    local y
    for y in 30 50 70; do
        Bar 40 $y 90 $((y + 10)) "$mist"
    done
    Line white 34 'line 82,92 138,140' 'line 138,92 82,140'
    Line '#C94842' 20 'line 82,92 138,140' 'line 138,92 82,140'
}

Fade() {
    Shape 'url(#blue)' "$deep" $((w * 3 / 4)) "path 'M 10,136 C 60,134 44,28 80,28 C 116,28 100,134 150,136 Z'"
}

MultiCpu() {
    local pin
    for pin in 50 80 110; do
        Bar $((pin - 5)) 10 $((pin + 5)) 150 "$mist"
        Bar 10 $((pin - 5)) 150 $((pin + 5)) "$mist"
    done
    Box 30 30 130 130 10 'url(#slate)' "$ink"
    Box 55 55 105 105 4 'url(#amber)' '#B98A35'
}

# A label with sound on it.
ReplayGain() {
    Shape 'url(#amber)' '#B98A35' $((w * 3 / 4)) "path 'M 8,80 L 52,28 L 152,28 L 152,132 L 52,132 Z'"
    Fill white 'ellipse 44,80 11,11 0,360'
    local x half
    while read -r x half; do
        Bar $x $((80 - half)) $((x + 12)) $((80 + half)) white
    done <<< $'72 14\n93 34\n114 22'
}

# A wave and the samples that it is made of anew.
Resample() {
    Line "$mist" $w "path 'M 10,80 C 30,10 60,10 80,80 C 100,150 130,150 150,80'"
    local x y
    while read -r x y; do
        Line '#C94842' $((n <= 20 ? 9 : 7)) "line $x,80 $x,$y"
        Fill "$deep" "ellipse $x,$y 11,11 0,360"
    done <<< $'28 46\n62 42\n98 118\n132 114'
}

Trim() {
    Line "$mist" $w 'line 8,80 152,80'
    local x half
    while read -r x half; do
        Bar $x $((80 - half)) $((x + 10)) $((80 + half)) "$deep"
    done <<< $'50 20\n70 50\n90 30\n110 20'
    Bar 20 20 30 140 '#C94842'
    Bar 140 20 150 140 '#C94842'
}

# A loudspeaker.
Volume() {
    Shape 'url(#blue)' "$deep" $((w * 3 / 4)) "path 'M 12,58 L 42,58 L 84,22 L 84,138 L 42,102 L 12,102 Z'"
    Line '#C94842' $((n <= 20 ? 13 : 10)) "path 'M 102,58 A 32,32 0 0 1 102,102'" "path 'M 122,34 A 64,64 0 0 1 122,126'"
}

WriteIcon "$2" '16 20 24 32 48' "$1"
