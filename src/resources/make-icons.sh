#!/usr/bin/env bash
# Draws the program's icons: make-icons.sh FOLDER. Each is NAME.ico with five sizes.
set -e
. "$(dirname "$0")/draw.sh"
out=$1
mkdir -p "$out"

# A cog wheel that grinds sound.
Program() {
    if ((n <= 24)); then
        Fill 'url(#blue)' "$(Cog 80 63)"
    else
        Shape 'url(#blue)' "$deep" $((w * 2 / 3)) "$(Cog 76 63)"
    fi
    if ((n <= 20)); then
        Bar 40 60 60 100 white
        Bar 70 40 90 120 white
        Bar 100 60 120 100 white
    else
        Line white 12 'line 42,74 42,86' 'line 61,57 61,103' 'line 80,40 80,120' 'line 99,62 99,98' \
            'line 118,73 118,87'
    fi
}

# A processor with its pins.
Slot() {
    local pin
    for pin in 40 60 90 110; do
        Bar $pin 10 $((pin + 10)) 150 "$mist"
        Bar 10 $pin 150 $((pin + 10)) "$mist"
    done
    Box 30 30 130 130 10 'url(#sky)' "$deep"
    Box 60 60 100 100 0 'url(#blue)' "$deep"
}

Disc() {
    Shape "url(#$1)" "$2" $((w * 2 / 3)) 'circle 80,80 80,10'
}

Information() {
    Disc blue "$deep"
    Bar 70 70 90 120 white
    Bar 70 40 90 60 white
}

Error() {
    Disc red '#B23A35'
    Line white 20 'line 56,56 104,104' 'line 104,56 56,104'
}

# A pencil at work on a name.
Rename() {
    Line "$mist" $w 'line 75,144 140,144'
    Shape '#F6E3C2' "$ink" $((w * 3 / 4)) "path 'M 30,95 L 16,141 L 62,127 Z'"
    Fill "$ink" "path 'M 20,126 L 16,141 L 31,137 Z'"
    Shape 'url(#blue)' "$deep" $((w * 3 / 4)) "path 'M 107,18 L 30,95 L 62,127 L 139,50 Z'"
    Line '#C1DBFC' $((w * 3 / 4)) 'line 105,36 46,95'
}

# The grip of a form's corner.
Corner() {
    local x y
    for x in 30 70 110; do
        for y in 110 70 30; do
            if ((x + y >= 140)); then
                Bar $((x + 10)) $((y + 10)) $((x + 30)) $((y + 30)) white
                Bar $x $y $((x + 20)) $((y + 20)) "$mist"
            fi
        done
    done
}

TextLine() {
    Box 20 10 140 150 0 'url(#paper)' "$edge"
    Bar 40 40 120 50 "$mist"
    Bar 40 70 120 80 "$mist"
    Bar 40 100 90 110 "$mist"
}

# Two boxes of a tree; $1 is "plus" to open them.
TreeBoxes() {
    Box 10 10 110 110 10 'url(#sky)' "$pen"
    Box 50 50 150 150 10 'url(#sky)' "$deep"
    Bar 70 90 130 110 "$deep"
    [ "$1" != plus ] || Bar 90 70 110 130 "$deep"
}

# Faders of a mixer.
TabEffects() {
    local x knob
    for x in 30 80 130; do
        Bar $((x - 5)) 10 $((x + 5)) 150 "$mist"
    done
    while read -r x knob; do
        Box $((x - 20)) $knob $((x + 20)) $((knob + 30)) 8 'url(#blue)' "$deep"
    done <<< $'30 80\n80 30\n130 100'
}

TabOther() {
    Shape 'url(#slate)' "$ink" $((w / 2)) "$(Cog 72 52)"
    Shape '#F4F7FB' "$ink" $((w / 2)) 'circle 80,80 80,58'
}

ChainSave() {
    Box 10 10 150 150 12 'url(#blue)' "$deep"
    Bar 40 20 120 60 '#E9F0F9'
    Bar 90 30 110 50 "$deep"
    Bar 40 90 120 140 white
    Bar 50 100 110 110 "$mist"
    Bar 50 120 110 130 "$mist"
}

Remove() {
    Line '#B23A35' 30 'line 38,38 122,122' 'line 122,38 38,122'
    Line '#E2716A' 16 'line 38,38 122,122' 'line 122,38 38,122'
}

# Check boxes of a list: $1 is "on" for ticked ones.
CheckAll() {
    Box 10 10 110 110 10 'url(#paper)' "$pen"
    Box 50 50 150 150 10 'url(#paper)' "$deep"
    [ "$1" != on ] || Line "$deep" 18 "path 'M 76,102 L 94,120 L 126,80'"
}

# Check "on|off" "enabled|disabled"
Check() {
    if [ "$2" = enabled ]; then
        Box 20 20 140 140 10 'url(#sky)' "$deep"
    else
        Box 20 20 140 140 10 'url(#grey)' '#B4BCC6'
    fi
    local colour="$deep"
    [ "$2" = enabled ] || colour='#9AA5B1'
    [ "$1" != on ] || Line "$colour" 18 "path 'M 48,82 L 70,106 L 113,53'"
}

Radio() {
    local fill='url(#sky)' line="$deep" dot="$deep"
    [ "$2" = enabled ] || fill='url(#grey)' line='#B4BCC6' dot='#9AA5B1'
    Shape "$fill" "$line" $w 'circle 80,80 80,24'
    [ "$1" != on ] || Fill "$dot" 'circle 80,80 80,52'
}

# name and picture
icons=(
    'slot Slot'
    'information Information'
    'rename Rename'
    'corner Corner'
    'uncheck_all CheckAll off'
    'check_all CheckAll on'
    'error Error'
    'text_line TextLine'
    'collapse TreeBoxes minus'
    'expand TreeBoxes plus'
    'tab_effects TabEffects'
    'tab_other TabOther'
    'chain_save ChainSave'
    'chain_load Folder'
    'chain_remove Remove'
    'check_on Check on enabled'
    'check_off Check off enabled'
    'check_on_disabled Check on disabled'
    'check_off_disabled Check off disabled'
    'radio_on Radio on enabled'
    'radio_off Radio off enabled'
    'radio_on_disabled Radio on disabled'
    'radio_off_disabled Radio off disabled'
)
Run WriteIcon "$out/program.ico" '16 20 24 32 48 64 256' Program
for icon in "${icons[@]}"; do
    set -- $icon
    Run WriteIcon "$out/$1.ico" '16 20 24 32 48' "${@:2}"
done
Finish
