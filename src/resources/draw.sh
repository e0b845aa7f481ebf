# Drawing for the scripts that make icons and bitmaps; to be sourced. A picture is a function that
# prints ImageMagick drawing commands on a grid of 160 x 160, whatever the size in pixels is: `n` holds
# that size while it runs, `w` the line width that suits it, in grid units. Pictures are rendered on a
# large canvas and reduced, so edges are smooth; Box snaps to whole pixels, so frames are sharp.

export MAGICK_THREAD_LIMIT=1

ink='#46586C'    # lines, letters
mist='#8496AB'   # lines that stand back
pen='#84ACDD'    # frames of light boxes
deep='#2F6CAE'   # frames of blue things
edge='#7D93AE'   # frames of paper
face='#F0F0F0'   # what forms stand on

# Gradients, top and bottom colour; their names are fills: fill url(#sky).
gradients=(
    'sky #EBF4FE #C1DBFC'
    'blue #7DB1E6 #3A77BA'
    'red #EE918A #C94842'
    'amber #FBE0A1 #EDB54F'
    'teal #7CCBC1 #378E85'
    'violet #B4AEE2 #6F64B0'
    'rose #E3A3BE #B25C80'
    'green #A9D18E #5E9A46'
    'slate #A5B3C3 #667A90'
    'paper #FFFFFF #E9F0F9'
    'grey #F7F7F7 #E2E2E2'
)

# SetSize PIXELS: the canvas is a multiple of the size, and of the grid for the usual ones.
SetSize() {
    n=$1
    case $n in
        16) canvas=480 w=10 frame=1 ;;
        20) canvas=480 w=9 frame=1 ;;
        24) canvas=480 w=8 frame=1 ;;
        32) canvas=480 w=8 frame=1 ;;
        48) canvas=480 w=7 frame=2 ;;
        64) canvas=960 w=6 frame=2 ;;
        *) canvas=$((n * 5)) w=5 frame=$((n / 42)) ;;
    esac
    per=$((canvas / n)) # canvas pixels in a pixel
}

# Snap UNITS -> at: the canvas position of the nearest pixel border.
Snap() {
    at=$((($1 * n + 80) / 160 * per))
}

# Box LEFT TOP RIGHT BOTTOM RADIUS FILL FRAME: a box whose frame lies inside its edges.
Box() {
    local l t r b radius=$(($5 * canvas / 160)) line=$((frame * per))
    Snap $1; l=$at; Snap $2; t=$at; Snap $3; r=$at; Snap $4; b=$at
    echo "push graphic-context stroke none fill $7"
    Round $l $t $r $b $radius
    ((l += line, t += line, r -= line, b -= line, radius -= line))
    echo "fill $6"
    Round $l $t $r $b $((radius > 0 ? radius : 0))
    echo 'pop graphic-context'
}

# Bar LEFT TOP RIGHT BOTTOM FILL: a rectangle on whole pixels, at least one wide.
Bar() {
    local l t r b
    Snap $1; l=$at; Snap $2; t=$at; Snap $3; r=$at; Snap $4; b=$at
    ((r > l)) || r=$((l + per))
    ((b > t)) || b=$((t + per))
    echo "push graphic-context stroke none fill $5"
    Round $l $t $r $b 0
    echo 'pop graphic-context'
}

# Round LEFT TOP RIGHT BOTTOM RADIUS in canvas pixels; right and bottom are excluded.
Round() {
    if (($5 > 0)); then
        echo "roundrectangle $1,$2 $(($3 - 1)),$(($4 - 1)) $5,$5"
    else
        echo "rectangle $1,$2 $(($3 - 1)),$(($4 - 1))"
    fi
}

# Fill COLOUR SHAPE..., Line COLOUR WIDTH SHAPE..., Shape FILL COLOUR WIDTH SHAPE...: shapes of
# ImageMagick in grid units, with round ends and joints.
Shape() {
    local fill=$1 colour=$2 width=$3
    shift 3
    echo "push graphic-context scale $((canvas * 10 / 160))e-1,$((canvas * 10 / 160))e-1
        fill $fill stroke $colour stroke-width $width stroke-linecap round stroke-linejoin round"
    printf '%s\n' "$@" 'pop graphic-context'
}
Fill() {
    local fill=$1
    shift
    Shape "$fill" none 0 "$@"
}
Line() {
    local colour=$1 width=$2
    shift 2
    Shape none "$colour" "$width" "$@"
}

# Cog OUTER INNER: the outline of a cog wheel with eight teeth around the middle, as a path.
Cog() {
    awk -v outer="$1" -v inner="$2" 'BEGIN {
        pi = atan2(0, -1)
        split("-0.245 -0.155 0.155 0.245", turn, " ")
        printf "path '\''"
        for (tooth = 0; tooth < 8; ++tooth)
            for (i = 1; i <= 4; ++i) {
                angle = tooth * pi / 4 + turn[i] * (i == 2 || i == 3 ? 1 : 1.1)
                radius = i == 2 || i == 3 ? outer : inner
                printf "%s %.2f,%.2f ", tooth + i == 1 ? "M" : "L",
                    80 + radius * sin(angle), 80 - radius * cos(angle)
            }
        print "Z'\''"
    }'
}

# A picture that icons and bitmaps share.
Folder() {
    local brown='#B98A35'
    Shape '#EFBE62' "$brown" $((w * 3 / 4)) \
        "path 'M 15,128 L 15,32 L 58,32 L 72,48 L 132,48 L 132,70 L 40,70 Z'"
    Shape 'url(#amber)' "$brown" $((w * 3 / 4)) "path 'M 15,132 L 40,72 L 150,72 L 127,132 Z'"
}

# Gradients run over the whole height; their coordinates do not follow `scale`.
Definitions() {
    local gradient
    echo 'push defs'
    for gradient in "${gradients[@]}"; do
        set -- $gradient
        echo "push gradient '$1' linear 0,0 0,$canvas
            gradient-units 'userSpaceOnUse' stop-color '$2' 0.08 stop-color '$3' 0.92 pop gradient"
    done
    echo 'pop defs'
}

# Picture FUNCTION PIXELS ARGUMENT...: sets `picture` to the convert arguments that render it.
Picture() {
    local draw=$1
    SetSize $2
    shift 2
    picture=('(' -size ${canvas}x$canvas xc:none -draw "$(Definitions; "$draw" "$@")"
             -filter box -resize ${n}x$n -depth 8 -type TrueColorMatte ')')
}

# WriteIcon FILE "SIZES" FUNCTION ARGUMENT...
WriteIcon() {
    local file=$1 sizes=$2 size all=()
    shift 2
    for size in $sizes; do
        Picture "$1" $size "${@:2}"
        all+=("${picture[@]}")
    done
    convert "${all[@]}" +set date:create +set date:modify -define png:exclude-chunks=date,time "$file"
}

# WriteBitmap FILE: convert's arguments behind it make the picture; written with a palette, whose colour
# of the first pixel (the form's face) LoadImageW can replace.
WriteBitmap() {
    local file=$1
    shift
    convert "$@" -background "$face" -alpha remove -alpha off -depth 8 +dither -colors 255 \
        -type Palette -compress none "BMP3:$file"
}

# Run COMMAND...: in the background, two at a time; Finish waits, and fails if one has failed.
Run() {
    "$@" &
    jobs+=($!)
    if ((${#jobs[@]} >= 2)); then
        wait ${jobs[0]} || exit 1
        jobs=("${jobs[@]:1}")
    fi
}
Finish() {
    local job
    for job in "${jobs[@]}"; do
        wait $job || exit 1
    done
    jobs=()
}
jobs=()
