#!/usr/bin/env bash
# Rules that no compiler checks, told as file:line, and the format. Portable sources must not touch what takes
# wchar_t for 4 bytes natively, nor the system; and every source is built by somebody.
cd "$(dirname "$0")/.." || exit 2
found=0

# report FILES... on stdin, one a line: prints every match of the pattern and remembers it.
report() {
    local what=$1 pattern=$2 hits
    hits=$(xargs -r -d '\n' grep -nHIP -e "$pattern" -- 2>/dev/null)
    [ -z "$hits" ] && return 0
    printf '%s\n' "$hits" | sed "s|\$|    [$what]|"
    found=1
}

all_files() { git ls-files --cached --others --exclude-standard -- "$@" | while read -r file; do
    [ -f "$file" ] && printf '%s\n' "$file"
done; }

# The sources that a CMakeLists.txt lists behind the given keywords, as paths from the root.
listed() {
    local keywords=$1 list
    all_files '*CMakeLists.txt' | while read -r list; do
        sed 's/#.*//; s/[()]/ & /g' "$list" | tr -s ' \t' '\n\n' |
            awk -v keywords="^($keywords)\$" -v folder="$(dirname "$list")/" '
                $0 ~ keywords { on = 1; next }
                /^[A-Z_]+$/ || /^[()]$/ { on = 0 }
                on && /\.cpp$/ { sub(/^\.\//, "", folder); print folder $0 }'
    done
}

# Sources of both builds; every one of foundation and naming that is not the system's side; and
# the headers beside them that leave windows.h alone.
portable_files() {
    local file header windows
    windows=$(listed 'WINDOWS|SOURCES')
    {
        listed 'PORTABLE|NATIVE'
        all_files 'src/foundation/*.cpp' 'src/naming/*.cpp' | grep -v 'Win\.cpp$' | grep -vxF "${windows:-/}"
    } | sort -u | while read -r file; do
        [ -f "$file" ] && printf '%s\n' "$file"
        header=${file%.cpp}.h
        [ -f "$header" ] && ! grep -q '#include <windows.h>' "$header" && printf '%s\n' "$header"
    done
    all_files 'src/foundation/*.h' 'src/naming/*.h' |
        while read -r header; do
            grep -q '#include <windows.h>' "$header" || printf '%s\n' "$header"
        done
}

portable=$(portable_files | sort -u)
if [ -z "$portable" ]; then
    echo "lint: no portable sources found" >&2
    exit 2
fi
printf '%s\n' "$portable" | report 'not in portable code' \
    'std::(wstring\w*|to_wstring|wc(out|err|in)|filesystem)\b|\b(_?wcs[a-z_]+|wmem[a-z]+|_?v?sn?wprintf\w*)\s*\('
printf '%s\n' "$portable" | grep -v '^tests/' |
    report 'no streams in portable code' '#include <(iostream|istream|fstream|sstream|iomanip|streambuf|locale|filesystem)>'
printf '%s\n' "$portable" | grep -v '^tests/' | grep -vx 'src/foundation/XStringPrint.cpp' |
    report 'streams belong to PrintTo' '#include <ostream>'
printf '%s\n' "$portable" | report 'no system in portable code' '#include <(windows|winsock2?|shlobj|shellapi|objbase)\.h>'
printf '%s\n' "$portable" | grep -v '^tests/' | report 'no choice of system in logic' '#.*if.*\b_WIN32\b'

# Documents that the tree doesn't hold, and paths of one machine.
all_files | grep -vx 'scripts/lint.sh' |
    report 'names what is not here' '\bspec\.md\b|\bParts? [1-8]\.[0-9]\b|\b[Tt]he specification\b|(^|[\s"=:(])/(work|farm)/\w'

all_files '*.cpp' '*.h' | xargs -d '\n' clang-format-14 --dry-run -Werror || found=1

# A source that no list names is built by nobody.
while read -r file; do
    folder=$(dirname "$file")
    while [ "$folder" != . ]; do
        list=$folder/CMakeLists.txt
        if [ -f "$list" ] && sed 's/#.*//' "$list" | tr -s ' \t()"<>,' '\n' |
            sed "s|^\${CMAKE_CURRENT_SOURCE_DIR}/||" | grep -qxF "${file#"$folder"/}"; then
            continue 2
        fi
        folder=$(dirname "$folder")
    done
    echo "$file:1: in no CMakeLists.txt of its folder    [not built]"
    found=1
done < <(all_files 'src/*.cpp' 'worker/*.cpp' 'plugins/*.cpp' 'tools/*.cpp')
exit $found
