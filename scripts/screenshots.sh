#!/usr/bin/env bash
# Takes a picture of each state of the forms. Usage: scripts/screenshots.sh FOLDER [DPI] [STATE...]
# DPI is 96 by default; without states all are taken: FOLDER/<state>-<dpi>.png.
set -euo pipefail
cd "$(dirname "$0")/.."
out=$(realpath -m "${1:?a folder}")
dpi=${2:-96}
shift $(($# < 2 ? $# : 2))
mkdir -p "$out"
[ -n "${TM_SKIP_BUILD:-}" ] || ./build.sh program screens
. scripts/wine-env.sh
[ -n "${TM_WINE_RUNNING:-}" ] || tm_start_wine
set_dpi() {
    tm_with_home wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$1" /f \
        >/dev/null 2>&1 </dev/null
}
TM_PROGRAM=Z:$(realpath "${TM_PROGRAM_FOLDER:-build/Tonemill}" | tr / '\\')\\
export TM_PROGRAM
program=${TM_SCREENS:-build/windows/tests/screens/screens.exe}
flag=$(mktemp -u)
trap 'set_dpi 96; rm -f "$flag"; [ -n "${TM_WINE_RUNNING:-}" ] || tm_stop_wine' EXIT
set_dpi "$dpi"
states=("$@")
[ $# -gt 0 ] || mapfile -t states < <(tm_with_home wine "$program" list 2>/dev/null </dev/null | tr -d '\r')

for state in "${states[@]}"; do
    tm_with_home wine "$program" "$state" "Z:${flag//\//\\}" >/dev/null 2>&1 </dev/null &
    shown=
    for _ in $(seq 600); do
        [ -e "$flag" ] && shown=1 && break
        kill -0 $! 2>/dev/null || break
        sleep 0.1
    done
    if [ -z "$shown" ]; then
        echo "$state: was not shown" >&2
        exit 1
    fi
    earlier=
    for _ in $(seq 20); do # the server of the screen paints later than the form; some forms never stand still
        import -window root "$out/all.png"
        colours=$(convert "$out/all.png" -format '%k %#' info:)
        [[ $colours != '1 '* && $colours = "$earlier" ]] && break
        earlier=$colours
        sleep 0.2
    done
    rm -f "$flag"
    wait $! || true
    # What stands out against the empty screen, with a little of it around.
    convert "$out/all.png" -bordercolor "$(convert "$out/all.png" -format '%[pixel:p{0,0}]' info:)" -border 1 \
        -trim +repage "$out/$state-$dpi.png"
    rm -f "$out/all.png"
    echo "$out/$state-$dpi.png"
done
