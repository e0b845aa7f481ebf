#!/bin/bash
# Installs the Debian packages that builds and tests need, where they are missing.
# usage: packages.sh [codecs|build|checks|samples|package]...   (no argument: all groups)
# When nothing is missing it asks dpkg alone and needs neither network nor root.
set -euo pipefail

# cross-compiling the codec libraries
codecs=(g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-win32
    libz-mingw-w64-dev libutfcpp-dev nasm cmake ninja-build make pkg-config dpkg-dev patch
    xz-utils bzip2 gcc libc6-dev ca-certificates)

# the program, its tests under Wine, the native sanitised build
build=(g++ clang-14 libclang-rt-14-dev clang-format-14 clang-tidy-14 googletest
    wine wine64 fonts-wine xvfb xdotool imagemagick git)

# independent tools that outputs are compared with
checks=(ffmpeg flac sox lame opus-tools vorbis-tools wavpack python3-mutagen)

# recordings that tests read
samples=(alsa-utils frozen-bubble-data sound-theme-freedesktop)

# the installer and the portable zip
package=(nsis zip unzip binutils binutils-mingw-w64-x86-64)

wanted=()
for group in "${@:-all}"; do
    case $group in
    codecs) wanted+=("${codecs[@]}") ;;
    build) wanted+=("${codecs[@]}" "${build[@]}") ;;
    checks) wanted+=("${checks[@]}") ;;
    samples) wanted+=("${samples[@]}") ;;
    package) wanted+=("${package[@]}") ;;
    all) wanted+=("${codecs[@]}" "${build[@]}" "${checks[@]}" "${samples[@]}" "${package[@]}") ;;
    *) echo "packages.sh: no group named '$group'" >&2; exit 2 ;;
    esac
done

# prints the wanted packages that are not fully installed
Missing() {
    local installed
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "${wanted[@]}" 2>/dev/null |
        sed -n 's/^installed //p') || true
    printf '%s\n' "${wanted[@]}" | sort -u | grep -vxF "$installed" || true
}

AsRoot() {
    if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

Apt() {
    AsRoot env DEBIAN_FRONTEND=noninteractive \
        apt-get -q -o DPkg::Lock::Timeout=500 -o Acquire::Retries=3 "$@" >&2
}

missing=$(Missing)
[ -n "$missing" ] || exit 0

echo "packages.sh: installing" $missing >&2
# Lists of an older day name package files that mirrors no longer carry: fetch them anew first.
Apt update
# shellcheck disable=SC2086
Apt install -y --no-install-recommends $missing

missing=$(Missing)
if [ -n "$missing" ]; then
    echo "packages.sh: still missing after the installation:" $missing >&2
    exit 1
fi
