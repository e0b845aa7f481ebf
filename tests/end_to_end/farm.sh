# What the tests with worker_farm.exe share; it is the first argument of their scripts.
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
farm=$1
program=$(realpath "${TM_PROGRAM_FOLDER:-$root/build/Tonemill}")
. "$root/scripts/wine-env.sh"

windows_path() { printf 'Z:%s' "$(realpath -ms -- "$1")" | tr / '\\'; }
run_farm() { # ENCODER FOLDER CUTS FLIPS FILE...
    local arguments=() file
    for file in "${@:5}"; do arguments+=("$(windows_path "$file")"); done
    mkdir -p "$2"
    TM_PROGRAM="$(windows_path "$program")\\" tm_with_home wine "$farm" "$1" "$(windows_path "$2")" "$3" "$4" \
        "${arguments[@]}" 2>/dev/null </dev/null | tr -d '\r' >"$2/rows.txt"
    [ "$(wc -l <"$2/rows.txt")" = $((${#arguments[@]} * (1 + $3 + $4))) ] || fail "rows of $2 are missing"
    expect_order "$2"
}
expect_order() { # FOLDER: what holds for every row, whatever the file
    awk -F '\t' '
        $2 != 0 && $2 != 1 { print "ends with " $2 ": " $1 " " $5 }
        $2 == 0 && ($4 != "written" || $5 != "") { print "success with an error, or without a file: " $0 }
        $2 == 1 && ($4 != "nothing" || $5 == "") { print "failure without an error, or with a file: " $0 }
    ' "$1/rows.txt" >"$work/faults.txt"
    fail_lines "$work/faults.txt"
    expect_nothing_else "$1/written" "$(awk -F '\t' '$4 == "written"' "$1/rows.txt" | wc -l)"
}
fail_lines() { # FILE: each line is a fault
    local line
    while IFS= read -r line; do fail "$line"; done <"$1"
}
