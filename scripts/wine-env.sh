# Source me: a Wine prefix of this clone's own, made once, with what unattended runs need.
# After it, WINEPREFIX, HOME-independent folders and a DISPLAY are set. TM_WINE moves the prefix.
tm_root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
tm_wine=${TM_WINE:-$tm_root/build/wine}
export WINEPREFIX=$tm_wine/prefix WINEDEBUG=${WINEDEBUG:--all} WINEARCH=win64
# Without a UTF-8 locale Wine can't name files beyond ASCII.
export LC_ALL=C.UTF-8
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"

# With random addresses one process in some 4,000 ends before it begins, under Linux 6.9 and later: the loader's
# heap may lie where Wine's page of shared data belongs. Where the system lets us, do without them.
tm_fixed=
if setarch -R true 2>/dev/null; then tm_fixed='setarch -R'; fi

# The prefix's Music, Documents and Desktop are links into HOME: give it one of its own.
# 9 is convert.sh's lock: Wine's services, which live on for a while, must not hold it.
tm_with_home() { HOME=$tm_wine/home $tm_fixed "$@" 9>&-; }

tm_make_prefix() {
    [ -e "$tm_wine/.complete" ] && return 0
    rm -rf "$tm_wine"
    mkdir -p "$tm_wine/home/Music" "$tm_wine/home/Documents" "$tm_wine/home/Desktop"
    tm_with_home wineboot -i >"$tm_wine/wineboot.log" 2>&1 </dev/null || return 1
    # A crashed program must end, not wait for a debugger or a click.
    cat >"$tm_wine/settings.reg" <<'REG'
Windows Registry Editor Version 5.00

[HKEY_LOCAL_MACHINE\Software\Microsoft\Windows NT\CurrentVersion\AeDebug]
"Debugger"="cmd /c exit"

; The shell shows an icon file as itself, as Windows does.
[HKEY_CLASSES_ROOT\.ico]
@="icofile"

[HKEY_CLASSES_ROOT\icofile\DefaultIcon]
@="%1"

[HKEY_CURRENT_USER\Software\Wine\WineDbg]
"ShowCrashDialog"=dword:00000000

[HKEY_CURRENT_USER\Software\Wine\X11 Driver]
"Managed"="N"
REG
    tm_with_home wine regedit /S "$(tm_with_home wine winepath -w "$tm_wine/settings.reg" 2>/dev/null | tr -d '\r')" \
        >>"$tm_wine/wineboot.log" 2>&1 </dev/null || return 1
    # With these fonts dialog units come out as on Windows.
    for font in tahoma.ttf tahomabd.ttf marlett.ttf; do
        cp "$(dpkg -L fonts-wine | grep "/$font\$" | head -n 1)" "$WINEPREFIX/drive_c/windows/Fonts/" || return 1
    done
    wineserver -w
    : >"$tm_wine/.complete"
}

# Starts a screen when there is none; tm_stop_display ends what was started here.
tm_start_display() {
    [ -n "${DISPLAY:-}" ] && return 0
    tm_display_file=$(mktemp)
    Xvfb -displayfd 3 -screen 0 1280x1024x24 3>"$tm_display_file" 9>&- >/dev/null 2>&1 </dev/null &
    tm_xvfb=$!
    for _ in $(seq 100); do
        [ -s "$tm_display_file" ] && break
        sleep 0.1
    done
    DISPLAY=:$(head -n 1 "$tm_display_file")
    export DISPLAY
    rm -f "$tm_display_file"
}

tm_stop_display() {
    if [ -n "${tm_xvfb:-}" ]; then
        kill "$tm_xvfb" 2>/dev/null
        wait "$tm_xvfb" 2>/dev/null
        unset tm_xvfb DISPLAY
    fi
}

# One server kept alive makes a Wine process start in some 50 ms. Its services inherit the first
# process's output, so that one gets none.
tm_start_wine() {
    tm_make_prefix || return 1
    mkdir -p "$tm_wine/home/.local/share" # where Wine keeps its recycle bin
    tm_start_display
    tm_with_home wineserver -p 2>/dev/null
    tm_with_home wine cmd /c exit >/dev/null 2>&1 </dev/null
}

tm_stop_wine() {
    wineserver -k 2>/dev/null
    wineserver -w 2>/dev/null
    tm_stop_display
}
