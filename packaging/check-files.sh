#!/bin/bash
# Looks over a program folder before it is shipped: whole, with licences, with nothing of the build machine.
# usage: check-files.sh <program folder> <folder of the codec libraries>
set -euo pipefail # so grep reads to the end here: with -q the writer ahead of it would fail, and with it the line
folder=$(realpath "$1") codecs=$2
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$folder"
faults=0
Fault() {
    echo "check-files: $*" >&2
    faults=1
}

for file in Tonemill.exe Millworker.exe ZtConfig.exe ZtSend.exe Help/zTM/zTM.htm licences/SOURCES.txt; do
    [ -s "$file" ] || Fault "$file is missing"
done

# A DLL that is imported stands in the folder or belongs to Windows.
while IFS= read -r file; do
    for name in $(x86_64-w64-mingw32-objdump -p "$file" | sed -nE 's/.*DLL Name: //p'); do
        [ -f "$name" ] && continue
        case ${name,,} in
        advapi32.dll | bcrypt.dll | comctl32.dll | comdlg32.dll | gdi32.dll | imm32.dll | kernel32.dll | \
            msimg32.dll | msvcrt.dll | ntdll.dll | ole32.dll | oleaut32.dll | psapi.dll | shell32.dll | shlwapi.dll | \
            user32.dll | uxtheme.dll | version.dll) ;;
        *) Fault "$file imports $name" ;;
        esac
    done
    strings -el "$file" | grep -x OriginalFilename >/dev/null || [[ $file = ./*-*.dll ]] || Fault "$file has no version information"
done < <(find . -name '*.exe' -o -name '*.dll')

# Loaded by every worker: libraries of the desktop would be as much work as converting a short file.
for file in Millworker.exe decoder/*.dll encoder/*.dll DSPs/*.dll *-*.dll; do
    if x86_64-w64-mingw32-objdump -p "$file" | grep -iE 'DLL Name: (user32|gdi32|shell32|ole32|crypt32)\.dll' >/dev/null; then
        Fault "$file loads the desktop's libraries at its start"
    fi
done

# Every source package that something was built from has its licence here.
while read -r name _; do
    case $name in libz-mingw-w64) name=zlib ;; esac
    [ -s "licences/$name.txt" ] || Fault "no licence of $name"
done <"$codecs/VERSIONS"
for name in gcc mingw-w64 LGPL-2.0 LGPL-2.1; do
    [ -s "licences/$name.txt" ] || Fault "no licences/$name.txt"
done

# Folders of the build machine, in texts of 8 and of 16 bits.
while IFS= read -r file; do
    for own in "$root/" "$folder" "$(dirname "$codecs")/" "$HOME/"; do
        [ "${#own}" -gt 3 ] || continue
        if { strings -a "$file"; strings -a -el "$file"; } | grep -F -- "$own" >/dev/null; then
            Fault "$file names $own"
        fi
    done
done < <(find . -type f)
exit $faults
