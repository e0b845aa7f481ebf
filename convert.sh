#!/usr/bin/env bash
# Converts audio files with Tonemill under Wine, unattended, in a Wine prefix of its own.
# Usage: ./convert.sh [--to ENCODER] [--out FOLDER] [--naming TEMPLATE] [--settings TEXT]
#                     [--effect NAME=SETTINGS]... [FILE...]
#   --to        an encoder in build/Tonemill/encoder (default FLAC)
#   --out       where the outputs go (default build/converted)
#   --naming    folders and names from the files' tags, such as '[artist]\[album]\[track] - [title]'
#               (default: the sources' names)
#   --settings  the encoder's settings text, such as '-level="8"'
#   --effect    an effect in build/Tonemill/DSPs, such as 'Playlist Writer=-file="Today"'
# Without files it converts recordings that Debian's package alsa-utils brings.
# Ends with 0 if every file was converted, 1 if one failed, 2 for a wrong call.
set -euo pipefail
root=$(cd "$(dirname "$0")" && pwd)
encoder=FLAC out=$root/build/converted settings= naming=
files=() effects=()
while [ $# -gt 0 ]; do
    case $1 in
    --to | --out | --naming | --settings | --effect)
        [ $# -ge 2 ] || { echo "convert.sh: $1 wants a value" >&2; exit 2; }
        case $1 in
        --to) encoder=$2 ;;
        --out) out=$2 ;;
        --naming) naming=$2 ;;
        --settings) settings=$2 ;;
        --effect) effects+=("$2") ;;
        esac
        shift 2 ;;
    -h | --help) sed -n '2,13s/^# \{0,1\}//p' "$0"; exit 0 ;;
    --) shift; files+=("$@"); break ;;
    -*) echo "convert.sh: unknown option $1" >&2; exit 2 ;;
    *) files+=("$1"); shift ;;
    esac
done

[ -n "${TM_SKIP_BUILD:-}" ] || "$root/build.sh"
program=$(realpath "${TM_PROGRAM_FOLDER:-$root/build/Tonemill}")
if [ ! -e "$program/encoder/$encoder.dll" ]; then
    echo "convert.sh: no encoder '$encoder'; there are:" >&2
    ls "$program/encoder" | sed -n 's/\.dll$//p' >&2
    exit 2
fi
if [ ${#files[@]} = 0 ]; then
    files=(/usr/share/sounds/alsa/*.wav)
fi
mkdir -p "$out"
out=$(realpath -ms -- "$out") # the run goes on in another folder

. "$root/scripts/wine-env.sh"
mkdir -p "$tm_wine"
exec 9>"$tm_wine.lock"
flock 9 # the recipe in the registry is one per prefix
clean_up() {
    rm -rf "$job/out" # outputs that nobody took
    [ -n "${TM_WINE_RUNNING:-}" ] || tm_stop_wine
}
job=$WINEPREFIX/drive_c/tonemill-job
trap clean_up EXIT
[ -n "${TM_WINE_RUNNING:-}" ] || tm_start_wine

# The prefix's drive Z: is the whole file system.
windows_path() { printf 'Z:%s' "$(realpath -ms -- "$1")" | tr / '\\'; }
registry_text() { printf '%s' "$1" | sed 's/[\\"]/\\&/g'; }

# Outputs of earlier runs would bring up a question: convert into a fresh folder, and move what
# succeeded. On the prefix's own drive a dot in front of a folder of OUT is out of the way, too.
rm -rf "$job"
mkdir -p "$job/out"
for file in "${files[@]}"; do
    printf '%s\r\n' "$(windows_path "$file")"
done | iconv -f UTF-8 -t UTF-16LE >"$job/list.txt"

# Batch Report gets the result list at the end of the batch and writes it to its file.
effects+=('Batch Report=-file="C:\tonemill-job\report.txt"')
chain=
for ((i = 0; i < ${#effects[@]}; ++i)); do
    chain+="-dspeffect$((i + 1))=\"${effects[i]//\"/{qt\}}\" "
done
chain=${chain% }
key='HKEY_CURRENT_USER\Software\Vantrel\Zephtone'
{
    printf 'Windows Registry Editor Version 5.00\n\n[%s]\n' "$key"
    printf '"zTMSkipedFinish"=dword:00000001\n"zTM-NoDisplayError"=dword:00000001\n"zTM-DisplayInfo"=dword:00000000\n'
    # Decoders remembered from a program folder elsewhere would be taken before this one's.
    printf '\n[-%s\\DecoderCache64]\n' "$key"
    printf '\n[%s\\zTMCodec\\%s]\n' "$key" "$encoder"
    printf '"ZTMUserFolder"=dword:0000000%d\n' $((${#naming} > 0 ? 2 : 1)) # chosen folder, or dynamic
    printf '"ZTMUserFolderStr"="%s"\n' 'C:\\tonemill-job\\out'
    printf '"ZTMDynamicNaming"="%s"\n' "$(registry_text "$naming")"
    printf '"ZTMDSPEffects"="%s"\n' "$(registry_text "$chain")"
    printf '"zTM_CLI"="%s"\n' "$(registry_text "$settings")"
} | { printf '\xff\xfe'; iconv -f UTF-8 -t UTF-16LE; } >"$job/recipe.reg"
cd "$program"
tm_with_home wine regedit /S 'C:\tonemill-job\recipe.reg' </dev/null >/dev/null 2>&1
# As two words each, since Wine puts quotes around a whole word and not around a value in it.
tm_with_home wine Tonemill.exe -list_to_conv 'C:\tonemill-job\list.txt' -conv_to_format "$encoder" \
    -skip_ready_to_conv </dev/null >"$job/run.log" 2>&1 || true

if [ ! -e "$job/report.txt" ]; then
    echo "convert.sh: the batch ended without a report" >&2
    exit 1
fi
# Under a name of its own until it is whole, since OUT may be another file system.
take() { # FROM TO
    mkdir -p "$(dirname "$2")"
    mv -f -- "$1" "$(dirname "$2")/.tonemill-$$" && mv -f -- "$(dirname "$2")/.tonemill-$$" "$2"
}
converted=0 failed=0
while IFS=$'\t' read -r state source target errors; do
    case $state in
    ok)
        if [[ $target == *.IGNORE ]]; then # Test Conversion writes no files
            source=${source#Z:}
            converted=$((converted + 1))
            printf 'sound    %s\n' "${source//\\//}"
            continue
        fi
        relative=${target#'C:\tonemill-job\out\'}
        relative=${relative//\\//}
        # Of two sources with one output the later one stands; the earlier row has nothing to take.
        if [ -e "$job/out/$relative" ]; then
            take "$job/out/$relative" "$out/$relative"
        fi
        converted=$((converted + 1))
        printf 'written  %s\n' "$out/$relative" ;;
    failed)
        source=${source#Z:}
        failed=$((failed + 1))
        printf 'failed   %s\n         %s\n' "${source//\\//}" "$errors" ;;
    esac
done < <(tr -d '\r' <"$job/report.txt")
# Playlists that an effect wrote beside the outputs; what somebody else has there stays.
while IFS= read -r -d '' list; do
    target=$out/${list#"$job/out/"}
    if [ -e "$target" ] && ! head -c 10 "$target" | grep -q '#EXTM3U'; then
        echo "convert.sh: $target is no playlist and was not replaced" >&2
    else
        take "$list" "$target"
    fi
done < <(find "$job/out" -name '*.m3u8' -type f -print0)
printf '%d converted, %d failed\n' "$converted" "$failed"
[ "$failed" = 0 ] && [ "$converted" -gt 0 ]
