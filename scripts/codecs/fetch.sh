#!/bin/bash
# Downloads Debian source packages and unpacks them, Debian's patches applied.
# usage: fetch.sh <download folder> <unpack folder> <list of "package version">
# The machine's apt settings stay as they are: a private set of source lists is derived from them.
set -euo pipefail
downloads=$1 unpacked=$2 list=$3
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

DeriveSourceLists
# A source that does not answer matters only if it has one of the packages: then the fetch below fails.
Apt update

cd "$downloads"
rm -f ./*.dsc
while read -r package version _; do
    case $package in '' | '#'*) continue ;; esac
    Apt source --download-only --only-source "$package"
    description=$(ls "$package"_*.dsc)
    found=$(sed -nE 's/^Version: //p' "$description" | head -n 1)
    # an epoch is no part of the upstream version
    case ${found#*:} in
    "$version"[.+~-]*) ;;
    *) echo "$package: this recipe is for version $version, apt offers $found" >&2; exit 1 ;;
    esac
    # apt has compared all files with the signed index; the developer's own signature needs another key ring
    dpkg-source --no-check -x "$description" "$unpacked/$package"
    echo "$package $found" >>"$unpacked/VERSIONS"
done <"$list"
