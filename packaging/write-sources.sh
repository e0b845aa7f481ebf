#!/bin/bash
# Prints SOURCES.txt: which libraries the program folder holds, in which versions, and where their sources are.
# usage: write-sources.sh <folder of the codec libraries>
set -euo pipefail
codecs=$1
sources=$(dirname "${BASH_SOURCE[0]}")/../scripts/codecs/sources.txt

cat <<'END'
The sources of what is in this folder
=====================================

Some libraries in Tonemill are under the GNU Lesser General Public License: FFmpeg (the DLLs beside the
program), and LAME, libsoxr and TagLib (linked into plug-ins). Their licence lets you have their sources,
change them and use Tonemill with your own builds of them.

Whoever hands on Tonemill has to offer the archive "Tonemill-<version>-sources.tar" beside it, or the same
for three years on request. It holds Tonemill's own sources, with all scripts, and the source packages of
the libraries as Debian publishes them. ./package.sh --sources makes the archive.

Without the archive: on Debian 12 `apt-get source NAME` brings the source package of a library.

Source package       Version                   Built by
END
while read -r name version; do
    recipe=$(awk -v name="$name" '$2 == name {print "scripts/codecs/recipes/" $1 ".sh"}' "$sources")
    printf '%-20s %-25s %s\n' "$name" "$version" "${recipe:-(from Debian as a binary package)}"
done <"$codecs/VERSIONS"
dpkg-query -W -f '${source:Package} ${source:Version}\n' mingw-w64-x86-64-dev gcc-mingw-w64-x86-64-posix |
    sort -u | while read -r name version; do
    printf '%-20s %-25s %s\n' "$name" "$version" "(from Debian as a binary package)"
done
cat <<'END'

To build with a changed library: unpack Tonemill's sources on Debian 12, change the library's recipe (such
as: apply a patch at the start of its Build) and run ./package.sh. scripts/codecs.sh fetches and builds the
libraries whose recipes have changed, then everything is linked anew. The FFmpeg DLLs can also be replaced
as they are, by others of the same major versions.
END
