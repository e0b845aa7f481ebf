#!/bin/bash
# Downloads Debian source packages.
# usage: fetch.sh <download folder> <list as in sources.txt>
# The machine's apt settings stay as they are: a private set of source lists is derived from them.
set -euo pipefail
downloads=$1 list=$2
apt=$downloads/apt

# Turns every entry that the machine's apt uses for binaries into one for sources.
DeriveSourceLists() {
    rm -rf "$apt/parts"
    mkdir -p "$apt/parts" "$apt/lists/partial" "$apt/cache/archives/partial"
    local file number=0
    for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
        [ -f "$file" ] || continue
        number=$((number + 1))
        sed -nE 's/^[[:space:]]*deb(-src)?[[:space:]]/deb-src /p' "$file" | sort -u >"$apt/parts/$number.list"
    done
    for file in /etc/apt/sources.list.d/*.sources; do
        [ -f "$file" ] || continue
        number=$((number + 1))
        sed -E 's/^[Tt]ypes[[:space:]]*:.*/Types: deb-src/' "$file" >"$apt/parts/$number.sources"
    done
}

# Own lists and cache, so no lock of the machine's apt is taken. A user's cache folder is closed to apt's
# download account, hence the sandbox setting; signatures and sums are checked as ever.
Apt() {
    apt-get -q -o Dir::Etc::sourcelist=/dev/null -o Dir::Etc::sourceparts="$apt/parts" \
        -o Dir::State::lists="$apt/lists" -o Dir::Cache="$apt/cache" -o APT::Sandbox::User="$(id -un)" \
        -o Acquire::Languages=none -o Acquire::Retries=3 -o DPkg::Lock::Timeout=500 "$@"
}

# The sum that a description gives for a file.
SumIn() {
    awk -v name="$2" '/^[^ ]/ {on = /^Checksums-Sha256:/} on && $3 == name {print $1 "  " $3}' "$1"
}

DeriveSourceLists
# A source that does not answer matters only if it has one of the packages: then the fetch below fails.
Apt update

cd "$downloads"
whole=() plain=()
while read -r library package version kind; do
    case $library in '' | '#'*) continue ;; esac
    if [ "$kind" = plain ]; then
        rm -f "${package}"_*
        plain+=("$package")
    else
        rm -f "${package}"_*.dsc
        whole+=("$package")
    fi
done <"$list"
if [ "${#whole[@]}" -gt 0 ]; then Apt source --download-only --only-source "${whole[@]}"; fi
for package in "${plain[@]}"; do
    # where the packaging is missing apt reports failure after it has the rest: the sum decides
    Apt source --download-only --only-source "$package" || true
    SumIn "$package"_*.dsc "$(ls "$package"_*.orig.tar.*[z2])" | sha256sum --check -
done

while read -r library package version _; do
    case $library in '' | '#'*) continue ;; esac
    found=$(sed -nE 's/^Version: //p' "$package"_*.dsc | head -n 1)
    # an epoch is no part of the upstream version
    case ${found#*:} in
    "$version"[.+~-]*) ;;
    *) echo "$package: this recipe is for version $version, apt offers $found" >&2; exit 1 ;;
    esac
done <"$list"
