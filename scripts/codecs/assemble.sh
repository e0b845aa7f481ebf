#!/bin/bash
# Joins built codec libraries to one folder.
# usage: assemble.sh <stage> <folder of a library>...
set -euo pipefail
stage=$1
shift
host=x86_64-w64-mingw32

Licences() {
    # the compiler's own run-time parts, linked into every binary
    cp /usr/share/doc/mingw-w64-common/copyright "$stage/share/licences/mingw-w64.txt"
    cp /usr/share/doc/gcc-mingw-w64-base/copyright "$stage/share/licences/gcc.txt"
}

# The DLLs go to machines that have nothing but Windows.
CheckImports() {
    local dll name
    for dll in "$stage"/bin/*.dll; do
        for name in $($host-objdump -p "$dll" | sed -nE 's/.*DLL Name: //p'); do
            [ -f "$stage/bin/$name" ] && continue
            case ${name,,} in
            kernel32.dll | msvcrt.dll | user32.dll | advapi32.dll | bcrypt.dll | ole32.dll | shell32.dll | psapi.dll) ;;
            *) echo "$dll imports $name" >&2; return 1 ;;
            esac
        done
    done
}

mkdir -p "$stage"
for library; do
    cp -r "$library/." "$stage"
done
cat "${@/%//VERSIONS}" | sort -u >"$stage/VERSIONS"
Licences
CheckImports
