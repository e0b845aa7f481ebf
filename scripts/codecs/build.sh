#!/bin/bash
# Cross-compiles one codec library with its recipe and publishes it in the cache.
# usage: build.sh <downloads> <work folder> <log folder> <cache folder of libraries> <library>:<key>
set -euo pipefail
recipes=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/recipes
downloads=$1 logs=$3 built=$4 library=${5%%:*}
work=$2/$library
sources=$work/sources objects=$work/objects stage=$work/stage
host=x86_64-w64-mingw32
jobs=${TONEMILL_JOBS:-$(nproc)}

# Installed below a neutral name: FFmpeg's DLLs carry their configure line into the program folder.
prefix=/codecs
install=$work/installed

# No library may be found in the build machine's own folders.
export PKG_CONFIG_LIBDIR=$install$prefix/lib/pkgconfig PKG_CONFIG_PATH= PKG_CONFIG_SYSROOT_DIR=$install

# CMakeLibrary <package> <switch>...
CMakeLibrary() {
    local package=$1
    shift
    cmake -S "$sources/$package" -B "$objects/$package" -G Ninja \
        -DCMAKE_TOOLCHAIN_FILE="$recipes/../toolchain.cmake" -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_INSTALL_PREFIX=$prefix -DBUILD_SHARED_LIBS=OFF "$@"
    ninja -C "$objects/$package" -j"$jobs"
    DESTDIR=$install ninja -C "$objects/$package" install
}

# Autotools <package> <switch>...; sees what the recipe installed before
Autotools() {
    local package=$1
    shift
    mkdir -p "$objects/$package"
    cd "$objects/$package"
    "$sources/$package/configure" --host=$host --prefix=$prefix --enable-static --disable-shared \
        --disable-dependency-tracking CC=$host-gcc-posix "$@"
    make -j"$jobs"
    make install DESTDIR="$install"
    # these name the final prefix and would be preferred to what pkg-config says
    rm -f "$install$prefix"/lib/*.la
}

# Unpacks the packages of the library, Debian's patches applied.
Unpack() {
    local owner package version kind
    mkdir -p "$sources" "$objects" "$install$prefix/lib"
    while read -r owner package version kind; do
        [ "$owner" = "$library" ] || continue
        if [ "$kind" = plain ]; then
            mkdir "$sources/$package"
            tar -xf "$downloads/$package"_*.orig.tar.* -C "$sources/$package" --strip-components=1
        else
            # apt has compared all files with the signed index; the developer's signature needs another key ring
            dpkg-source --no-check --no-copy -x "$downloads/$package"_*.dsc "$sources/$package"
        fi
        sed -nE "s/^Version: /$package /p" "$downloads/$package"_*.dsc | head -n 1 >>"$work/VERSIONS"
    done <"$recipes/../sources.txt"
}

# Headers, import and static libraries, stripped DLLs, licences; nothing that names the build's folders.
Collect() {
    local from=$install$prefix file package
    mkdir -p "$stage/include" "$stage/lib" "$stage/bin" "$stage/share/licences"
    cp -r "$from/include/." "$stage/include"
    for file in "$from"/lib/*.a; do
        cp "$file" "$stage/lib"
        case $file in *.dll.a) ;; *) $host-strip --strip-debug "$stage/lib/${file##*/}" ;; esac
    done
    for file in "$from"/bin/*.dll; do
        [ -f "$file" ] || continue
        $host-strip -o "$stage/bin/${file##*/}" "$file"
    done
    for package in "$sources"/*; do
        file=$package/debian/copyright
        [ -f "$file" ] || file=$package/COPYING # a plain one
        cp "$file" "$stage/share/licences/${package##*/}.txt"
    done
    cp "$work/VERSIONS" "$stage"
    if [ "${#compiledIn[@]}" -gt 0 ]; then
        dpkg-query -W -f '${source:Package} ${source:Version}\n' "${compiledIn[@]}" >>"$stage/VERSIONS"
    fi
    if declare -F Licences >/dev/null; then Licences "$stage/share/licences"; fi
}

# A recipe defines Build, and where they apply Licences <folder> and compiledIn, the installed packages that it takes.
Run() {
    local compiledIn=()
    # shellcheck source=/dev/null
    . "$recipes/$library.sh"
    Unpack
    (Build)
    Collect
}

# A shell of its own: errexit does not reach into functions that are called in a condition.
if [ "${6:-}" = run ]; then
    Run
    exit
fi

started=$(date +%s)
log=$logs/$library.log
if ! bash -x "${BASH_SOURCE[0]}" "${@:1:5}" run >"$log" 2>&1; then
    echo "codecs: $library failed, the end of $log:" >&2
    tail -n 30 "$log" >&2
    exit 1
fi
mv "$stage" "$built/$library-${5#*:}"
rm -rf "$work"
echo "codecs: $library $(($(date +%s) - started)) s" >&2
