# Compiles musl's mathematics to libscalarmath.a in a folder, for FFmpeg's DLLs: mingw-w64's own run on the x87
# unit, which costs a third of the time of encoding AAC.
# usage: ffmpeg-math.sh <sources of musl> <folder> <compiler>
set -euo pipefail
musl=$1 folder=$(realpath -m "$2") compiler=$3
functions=(exp exp2 exp2f expf log log2 log2f logf log10 log10f pow powf sin sinf cos cosf sincos sincosf
    tan tanf atan atanf atan2 atan2f cbrt cbrtf hypot hypotf)
mkdir -p "$folder/headers"
cd "$musl"
# headers that mingw-w64 does not have; what musl keeps to itself is not marked so
printf '#define __LITTLE_ENDIAN 1\n#define __BYTE_ORDER __LITTLE_ENDIAN\n' >"$folder/headers/endian.h"
: >"$folder/headers/features.h"
for source in "${functions[@]/%/.c}" {exp,exp2f,log,log2,log2f,logf,pow,powf}_data.c \
    __{sin,cos,tan,sindf,cosdf,tandf,rem_pio2,rem_pio2f,rem_pio2_large}.c \
    __math_{divzero,divzerof,invalid,invalidf,oflow,oflowf,uflow,uflowf,xflow,xflowf}.c; do
    "$compiler" -std=gnu99 -O2 -ffreestanding -fno-math-errno -ffp-contract=off -w -Dhidden= \
        -I"$folder/headers" -Isrc/internal -Iarch/generic -c "src/math/$source" -o "$folder/${source%.c}.o"
done
"${compiler%-gcc*}-ar" rcs "$folder/libscalarmath.a" "$folder"/*.o
