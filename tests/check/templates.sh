#!/usr/bin/env bash
# The README's section for plug-in writers is true: its code is that of the template, and its commands,
# run as they stand, build the templates and find nothing broken in them.
set -uo pipefail
export LC_ALL=C.UTF-8
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
program=$(cd "${1:?program folder}" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAILED: $*"; exit 1; }

section=$(sed -n '/^### Writing a plug-in/,/^### [^W]/p' "$root/README.md")
block() { awk -v open="\`\`\`$1" '$0 == open { on = 1; next } /^```$/ { on = 0 } on' <<<"$section"; }
diff <(block cpp) "$root/templates/Polarity.cpp" || fail "the README shows other code than templates/Polarity.cpp"
[ "$(block sh | wc -l)" = 6 ] || fail "the README has other commands than this test knows"

# Two channels of 8000 Hz in 16 bit: an AudioFormatRecord and 5000 frames.
perl -e 'print "pcmz", pack("v v V V v v V V Q< x12 Q< x16", 1, 2, 8000, 0, 4, 16, 0, 0, 5000, 625),
    pack("l<*", map { $_ % 2000 - 1000 } 1 .. 10000)' >"$work/sample.pcmz"

# What the commands call: the cross compiler, and the checker of the program folder under Wine.
mkdir -p "$work/bin"
ln -s "$program/sdk" "$work/sdk"
cat >"$work/bin/g++" <<'SHIM'
#!/usr/bin/env bash
exec x86_64-w64-mingw32-g++-posix -Wall -Wextra -Werror "$@"
SHIM
chmod +x "$work/bin/g++"
cd "$work" || exit 2
checked=0
while read -r line; do
    case $line in
    g++*) PATH=$work/bin:$PATH bash -c "$line" || fail "$line" ;;
    *)
        told=$(bash -c "$root/scripts/wine-run.sh $program/$line") || { printf '%s\n' "$told"; fail "$line"; }
        printf '%s\n' "$told" | grep -v '^ok '
        checked=$((checked + 1))
        ;;
    esac
done < <(block sh)
[ "$checked" = 3 ] || fail "$checked templates were checked"
