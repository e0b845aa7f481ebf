#!/bin/bash
# Cross-compiles the codec libraries into a staging folder.
# usage: build.sh <unpacked sources> <stage> <log folder>
set -euo pipefail
recipes=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
sources=$1 stage=$2 logs=$3
host=x86_64-w64-mingw32
jobs=${TONEMILL_JOBS:-$(nproc)}
objects=$sources/objects

# Installed below a neutral name: FFmpeg's DLLs carry their configure line into the program folder.
prefix=/codecs
install=$sources/installed

# No library may be found in the build machine's own folders.
export PKG_CONFIG_LIBDIR=$install$prefix/lib/pkgconfig PKG_CONFIG_PATH=

# CMakeLibrary <package> <switch>...
CMakeLibrary() {
    local package=$1
    shift
    cmake -S "$sources/$package" -B "$objects/$package" -G Ninja \
        -DCMAKE_TOOLCHAIN_FILE="$recipes/toolchain.cmake" -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_INSTALL_PREFIX=$prefix -DBUILD_SHARED_LIBS=OFF "$@"
    ninja -C "$objects/$package" -j"$jobs"
    DESTDIR=$install ninja -C "$objects/$package" install
}

# gcc with win32 threads: the posix one would make the DLLs import a thread library of its own.
# Built in the source folder, so that no path of the build machine gets into messages of the DLLs.
Build_ffmpeg() {
    cd "$sources/ffmpeg"
    bash "$recipes/ffmpeg-components.sh" . >components.txt
    ./configure --prefix=$prefix --target-os=mingw32 --arch=x86_64 --enable-cross-compile \
        --cross-prefix=$host- --cc=$host-gcc-win32 --x86asmexe=nasm \
        --enable-shared --disable-static --disable-debug --disable-programs --disable-doc \
        --disable-autodetect --disable-network --disable-everything \
        --disable-avdevice --disable-avfilter --disable-swscale --disable-postproc \
        --enable-swresample --enable-w32threads --disable-pthreads \
        --extra-ldflags=-static-libgcc $(cat components.txt)
    make -j"$jobs"
    make install DESTDIR="$install"
}

# Stack protector and fortify would need run-time libraries that the plug-ins do not link.
Build_flac() {
    CMakeLibrary flac -DWITH_OGG=OFF -DWITH_STACK_PROTECTOR=OFF -DWITH_FORTIFY_SOURCE=OFF \
        -DBUILD_CXXLIBS=OFF -DBUILD_PROGRAMS=OFF -DBUILD_EXAMPLES=OFF -DBUILD_TESTING=OFF \
        -DBUILD_DOCS=OFF -DINSTALL_MANPAGES=OFF
}

# Its configure sets no optimisation at all when it cross-compiles: three times slower without these flags.
Build_lame() {
    mkdir -p "$objects/lame"
    cd "$objects/lame"
    "$sources/lame/configure" --host=$host --prefix=$prefix --enable-static --disable-shared \
        --disable-dependency-tracking --disable-frontend --disable-decoder --disable-gtktest \
        CC=$host-gcc-posix CFLAGS="-O3 -fomit-frame-pointer -ffast-math -DNDEBUG"
    make -j"$jobs"
    make install DESTDIR="$install"
}

Build_taglib() {
    # a copy: the package's own folder sits among the native headers, which must stay out of the search
    mkdir -p "$objects/utf8cpp"
    cp -rL /usr/include/utf8cpp/. "$objects/utf8cpp"
    CMakeLibrary taglib -DBUILD_TESTING=OFF -DBUILD_EXAMPLES=OFF -DBUILD_BINDINGS=OFF \
        -DCMAKE_CXX_FLAGS="-isystem $objects/utf8cpp" \
        -DZLIB_LIBRARY=/usr/$host/lib/libz.a -DZLIB_INCLUDE_DIR=/usr/$host/include
}

# Headers, import and static libraries, stripped DLLs; nothing that names the build's folders.
Collect() {
    local from=$install$prefix
    mkdir -p "$stage/include" "$stage/lib" "$stage/bin"
    cp -r "$from/include/." "$stage/include"
    cp "$from"/lib/*.a "$stage/lib"
    cp /usr/$host/lib/libz.a "$stage/lib"
    cp "$from"/bin/*.dll "$stage/bin"
    $host-strip "$stage"/bin/*.dll
    cp "$sources/VERSIONS" "$stage/VERSIONS"
    dpkg-query -W -f '${source:Package} ${source:Version}\n' libz-mingw-w64-dev libutfcpp-dev >>"$stage/VERSIONS"
}

# What has to accompany the libraries in the program folder.
CollectLicences() {
    local to=$stage/share/licences package
    mkdir -p "$to"
    for package in ffmpeg flac lame taglib; do
        cp "$sources/$package/debian/copyright" "$to/$package.txt"
    done
    cp /usr/share/doc/libz-mingw-w64-dev/copyright "$to/zlib.txt"
    cp /usr/share/doc/libutfcpp-dev/copyright "$to/utfcpp.txt"
    # the compiler's own run-time parts, linked into every binary
    cp /usr/share/doc/mingw-w64-common/copyright "$to/mingw-w64.txt"
    cp /usr/share/doc/gcc-mingw-w64-base/copyright "$to/gcc.txt"
    # the files above only refer to this text
    cp "$sources/ffmpeg/COPYING.LGPLv2.1" "$to/LGPL-2.1.txt"
    cp "$sources/lame/COPYING" "$to/LGPL-2.0.txt"
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

# Each step is a shell of its own: errexit does not reach into functions that are called in a condition.
if [ $# = 4 ]; then
    "$4"
    exit
fi

for step in Build_ffmpeg Build_lame Build_flac Build_taglib Collect CollectLicences CheckImports; do
    started=$(date +%s)
    log=$logs/${step#Build_}.log
    if ! bash -x "${BASH_SOURCE[0]}" "$sources" "$stage" "$logs" "$step" >"$log" 2>&1; then
        echo "codecs: $step failed, the end of $log:" >&2
        tail -n 30 "$log" >&2
        exit 1
    fi
    echo "codecs: ${step#Build_} $(($(date +%s) - started)) s" >&2
done
