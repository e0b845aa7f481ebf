#!/usr/bin/env bash
# Outputs that exist, by real mouse and keys: one is left out, one gets another name, and a file
# without an older output is made as ever. What was in the folder stays as it was, byte for byte.
. "$(dirname "$0")/lib.sh"
state=$(dirname "$1")/list_state.exe
mkdir "$work/in"
for name in 1kept 2renamed 3new; do
    sox -r 44100 -n -c 2 -b 16 "$work/in/$name.wav" synth 1 sine "${name%%[!0-9]*}00" vol 0.5
done
convert --to Wave --out "$work/expected" "$work"/in/*.wav
expect_converted 3 0
mv "$work/expected/2renamed.wav" "$work/expected/2renamed again.wav"
printf 'older' >"$work/expected/1kept.wav"
printf 'older, too' >"$work/expected/2renamed.wav"

. "$root/scripts/wine-env.sh"
[ -n "${TM_WINE_RUNNING:-}" ] || tm_start_wine
exec 9>"$tm_wine.lock"
flock 9 # the recipe in the registry is one per prefix
job=$WINEPREFIX/drive_c/tonemill-job
program=
clean_up() {
    [ -z "$program" ] || kill "$program" 2>/dev/null
    rm -rf "$work" "$job/out"
    [ -n "${TM_WINE_RUNNING:-}" ] || tm_stop_wine
}
trap clean_up EXIT
rm -rf "$job"
mkdir -p "$job/out"
cp "$work"/expected/{1kept,2renamed}.wav "$job/out"
printf '%s\r\n' "$work"/in/*.wav | sed 's/^/Z:/' | tr / '\\' | iconv -t UTF-16LE >"$job/list.txt"
# One slot: of two that are free at once the second takes a file that is left out, too.
cat >"$job/recipe.reg" <<'REG'
Windows Registry Editor Version 5.00

[HKEY_CURRENT_USER\Software\Vantrel\Zephtone]
"zTMSkipedFinish"=dword:00000001
"zTM-NoDisplayError"=dword:00000001

[HKEY_CURRENT_USER\Software\Vantrel\Zephtone\zTMCodec\Wave]
"ZTMUserFolder"=dword:00000001
"ZTMUserFolderStr"="C:\\tonemill-job\\out"
"ZTMDSPEffects"="-dspeffect1=\"Multi-CPU Force=-cpu1\""
"zTM_CLI"=""
REG
cd "${TM_PROGRAM_FOLDER:-$root/build/Tonemill}" || exit 1
tm_with_home wine regedit /S 'C:\tonemill-job\recipe.reg' </dev/null >/dev/null 2>&1
HOME=$tm_wine/home $tm_fixed wine Tonemill.exe -list_to_conv 'C:\tonemill-job\list.txt' -conv_to_format Wave \
    -skip_ready_to_conv </dev/null >/dev/null 2>&1 9>&- &
program=$!

# Waits until the form says so: SIGNS FOCUS TEXT-OF-THE-EDIT.
wait_for() {
    local deadline=$((SECONDS + 60)) signs= focus= text=
    while [ $SECONDS -lt $deadline ]; do
        if read -r x y row_height button_x button_y signs focus text \
            < <(tm_with_home wine "$state" 'Zephtone: Confirm File Replace' Overwrite 2>/dev/null </dev/null |
                tr -d '\r') && [ "$signs $focus $text" = "$*" ]; then
            return 0
        fi
        sleep 0.1
    done
    fail "the form never showed '$*' but '$signs $focus $text'"
    import -window root "$root/build/overwrite-failed.png"
    finish
}
wait_for xx list ''
xdotool mousemove "$x" "$y" click 1
wait_for .x list ''
xdotool key Down F2
wait_for .x edit 'C:\tonemill-job\out\2renamed'
xdotool key End type ' again'
wait_for .x edit 'C:\tonemill-job\out\2renamed again'
xdotool key Return
wait_for .x list ''
xdotool mousemove "$button_x" "$button_y" click 1
for _ in $(seq 600); do
    kill -0 "$program" 2>/dev/null || break
    sleep 0.1
done
kill -0 "$program" 2>/dev/null && fail "the batch never ended"
wait "$program" || fail "the program ended with $?"
program=
diff -r "$work/expected" "$job/out" || fail "the folder is not as decided"
finish
