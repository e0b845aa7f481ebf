#!/usr/bin/env bash
# The installer, silently: what it lays down is the portable program and converts, what it leaves when it
# is gone is nothing but the user's settings, and without those nothing.
. "$(dirname "$0")/lib.sh"
. "$root/scripts/wine-env.sh"
settings='HKEY_CURRENT_USER\Software\Vantrel'
uninstall='HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Uninstall\Zephtone Tonemill'
c=$WINEPREFIX/drive_c
menu=$(echo "$c"/users/*/AppData/Roaming/Microsoft/Windows/Start\ Menu/Programs)/Zephtone\ Tonemill
lists=$(echo "$c"/users/*/AppData/Roaming)/Zephtone
usual=$(echo "$c"/users/*/AppData/Local)/Programs/Tonemill

windows() { tm_with_home wine "$@" </dev/null >/dev/null 2>&1; }
# A line for each value, with its key in front.
registry() { # KEY
    rm -f "$c/export.reg"
    windows regedit /E 'C:\export.reg' "$1"
    iconv -f UTF-16 -t UTF-8 "$c/export.reg" 2>/dev/null | tr -d '\r' |
        awk '/^\[/ {key = $0} NF {print key, $0}' | sort
}
# The registry and all files, but for the settings, temporary files, what the system remembers of its file
# dialog and its screen, and two keys that every Windows has.
state() { # NAME
    { registry HKEY_CURRENT_USER; registry 'HKEY_LOCAL_MACHINE\Software'; } |
        grep -vF -e "[$settings" -e 'Explorer\ComDlg32' -e '[HKEY_CURRENT_USER\Software\Wine\Temp' |
        grep -v -e '\\Software\\Classes\]$' -e '\\CurrentVersion\\Uninstall\]$' >"$work/$1.registry"
    find "$c" "$tm_wine/home" -path '*/Temp' -prune -o -path '*/temp' -prune -o -print |
        grep -v -e '/export.reg$' -e '/tonemill-job' | sort >"$work/$1.files"
}
expect_state() { # NAME WHEN
    state now
    local what
    for what in registry files; do
        diff "$work/$1.$what" "$work/now.$what" >"$work/diff" || { fail "$what $2"; head -n 20 "$work/diff"; }
    done
}
# What an installer is told stands in a script: Wine would put quotes around a folder with blanks.
run() { # ARGUMENTS
    printf '@"%s" %s\r\n' "$1" "$2" >"$c/run.cmd"
    windows cmd /c 'C:\run.cmd'
    rm -f "$c/run.cmd"
}
has() { [ -n "$(registry "$1" | grep -i -e "${2:-.}")" ]; } # KEY [PATTERN]
wait_until() { # COMMAND: the uninstaller works on in a copy of itself
    local i
    for i in $(seq 150); do
        "$@" && return 0
        sleep 0.2
    done
    fail "in 30 s never: $*"
}
gone() { [ ! -e "$1" ]; }

TM_BUILD=$(realpath "$(dirname "$1")/../..") TM_SKIP_BUILD=1 TM_PACKAGE=$work/package "$root/package.sh" \
    >"$work/package.log" 2>&1 || { cat "$work/package.log"; fail "no package"; finish; }
cp "$work"/package/*-setup.exe "$c/setup.exe"
unzip -q "$work"/package/*-portable.zip -d "$work/zip"
sox -r 44100 -n -c 2 -b 16 "$work/tone.wav" synth 1 sine 440 vol 0.5

# The settings that other tests left come back in the end.
registry "$settings" >/dev/null
mv "$c/export.reg" "$work/settings.reg" 2>/dev/null
windows reg delete "$settings" /f
# What a run that was broken off has left.
windows "$work"/zip/*/ZtSend.exe /unregister
windows reg delete "$uninstall" /f
rm -rf "$c/tone mill" "$usual" "$menu" "$lists"
state before

# Into a folder with blanks, where a user adds a plug-in of another maker.
folder="$c/tone mill/the program"
run 'C:\setup.exe' '/S /D=C:\tone mill\the program'
diff -r "$work"/zip/* "$folder" >"$work/diff"
[ "$(cat "$work/diff")" = "Only in $folder: Uninstall.exe" ] || { fail "not the portable program"; cat "$work/diff"; }
has "$uninstall" || fail "no entry among the installed programs"
[ -e "$menu/Zephtone Tonemill.lnk" ] || fail "no entry in the start menu"
has 'HKEY_CURRENT_USER\Software\Classes' 'the program.*ZtSend' || fail "no entry in Explorer"
TM_PROGRAM_FOLDER=$folder convert --to FLAC --out "$work/out" "$work/tone.wav"
expect_converted 1 0
has "$settings" || fail "the conversion left no settings"
touch "$folder/DSPs/Echo.dll"

# Explorer's helper brings the file to a form.
tm_with_home wine "$folder/ZtSend.exe" "$(tm_with_home wine winepath -w "$work/tone.wav" 2>/dev/null | tr -d '\r')" </dev/null >/dev/null 2>&1
wait_until sh -c 'xdotool search --name "^Zephtone Tonemill$" >/dev/null 2>&1'
windows taskkill /F /IM Tonemill.exe
mkdir -p "$lists"
touch "$lists/ZtSend-killed.tmp"

# Not while the program is running: nothing is half removed or half replaced.
tm_with_home wine "$folder/Tonemill.exe" </dev/null >/dev/null 2>&1 &
program=$!
wait_until sh -c 'xdotool search --name "Tonemill|Select|Open" >/dev/null 2>&1'
run 'C:\tone mill\the program\Uninstall.exe' '/S'
run 'C:\setup.exe' '/S /D=C:\tone mill\the program'
sleep 2 # for a copy of the uninstaller that did not stop
diff -r "$work"/zip/* "$folder" >"$work/diff"
[ "$(grep -c -v -e ': Uninstall.exe$' -e ': Echo.dll$' "$work/diff")" = 0 ] ||
    { fail "touched while it was running"; head "$work/diff"; }
windows taskkill /F /IM Tonemill.exe
wait "$program" 2>/dev/null

run 'C:\tone mill\the program\Uninstall.exe' '/S'
wait_until gone "$folder/Uninstall.exe"
[ "$(find "$folder" -type f)" = "$folder/DSPs/Echo.dll" ] || { fail "files are left"; find "$folder" -type f; }
rm -rf "$c/tone mill"
expect_state before "not as before the installation"
has "$settings" || fail "the settings are gone"

# Without entries; an update elsewhere takes the first one away; then the settings go, too.
run 'C:\setup.exe' '/S /EXPLORER=0 /STARTMENU=0'
[ -e "$usual/Tonemill.exe" ] || fail "not in the usual folder"
has 'HKEY_CURRENT_USER\Software\Classes' ZtSend && fail "an entry in Explorer in spite of /EXPLORER=0"
[ -e "$menu" ] && fail "an entry in the start menu in spite of /STARTMENU=0"
run 'C:\setup.exe' '/S /D=C:\tone mill'
[ -e "$usual" ] && fail "the earlier version is left"
has "$settings" || fail "the update took the settings"
{ has 'HKEY_CURRENT_USER\Software\Classes' ZtSend || [ -e "$menu" ]; } && fail "the update put an entry back"
run 'C:\tone mill\Uninstall.exe' '/S /SETTINGS=remove'
wait_until gone "$c/tone mill"
expect_state before "not as before the second installation"
has "$settings" && fail "the settings are left"

[ -e "$work/settings.reg" ] && cp "$work/settings.reg" "$c/export.reg" && windows regedit /S 'C:\export.reg'
rm -f "$c/export.reg" "$c/setup.exe"
finish
