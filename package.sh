#!/usr/bin/env bash
# Makes what users get, in build/package/: an installer and a portable zip, the same to the byte for the
# same commit. Usage: ./package.sh [--sources]
#   --sources  also the archive of all sources that has to be offered with them (needs the network)
# Environment: TM_SKIP_BUILD=1 takes a finished build, TM_BUILD another build folder, TM_PACKAGE another
# folder for the results, SOURCE_DATE_EPOCH the time of all files (default: that of the commit).
set -euo pipefail
root=$(cd "$(dirname "$0")" && pwd)
cd "$root"
build=$(realpath -m "${TM_BUILD:-build/windows}")
out=$(realpath -m "${TM_PACKAGE:-build/package}")

[ -n "${TM_SKIP_BUILD:-}" ] || ./build.sh
scripts/packages.sh package
codecs=$(sed -n 's/^TM_CODECS:PATH=//p' "$build/CMakeCache.txt")
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$build/CMakeCache.txt")
export SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct)} TZ=UTC LC_ALL=C

# The folder under its final name: the zip holds it, the installer its contents.
folder=$out/Tonemill-$version
rm -rf "$folder"
mkdir -p "$out"
cmake --install "$build" --component program --prefix "$folder" >"$out/.install.log"
packaging/write-sources.sh "$codecs" >"$folder/licences/SOURCES.txt"
packaging/check-files.sh "$folder" "$codecs"
find "$folder" -type f -exec chmod 644 {} +
find "$folder" -exec touch -h -d "@$SOURCE_DATE_EPOCH" {} +

zip=$out/Tonemill-$version-portable.zip
rm -f "$zip"
(cd "$out" && find "Tonemill-$version" -type f | sort | zip -q -X -9 -@ "$zip")

icon=$build/src/resources/program.ico
convert -size 164x314 'gradient:#ffffff-#d3e2f4' \( "$icon" -delete 0--2 -resize 96x96 \) \
    -gravity north -geometry +0+48 -composite -type truecolor "BMP3:$out/.side.bmp"
touch -d "@$SOURCE_DATE_EPOCH" "$out/.side.bmp" # the installer keeps the time of each file

packaging/list-files.sh "$folder" >"$out/.files.nsh"
installer=$out/Tonemill-$version-setup.exe
makensis -V2 -WX -DVERSION="$version" -DFOLDER="$folder" -DFILES="$out/.files.nsh" \
    -DICON="$icon" -DPICTURE="$out/.side.bmp" -DSIZE="$(du -sk --apparent-size "$folder" | cut -f 1)" \
    -DOUTPUT="$installer" packaging/Tonemill.nsi

sources=
if [ "${1:-}" = --sources ]; then
    sources=$out/Tonemill-$version-sources.tar
    packaging/collect-sources.sh "$codecs" "$sources" "Tonemill-$version-sources"
fi
ls -l "$installer" "$zip" $sources | awk '{printf "%8.2f MB  %s\n", $5 / 1048576, $NF}'
