compiledIn=(libz-mingw-w64-dev)
export SOURCE_DATE_EPOCH=0 # the time that linker and strip write into DLLs: the same in every build

# gcc with win32 threads: the posix one would make the DLLs import a thread library of its own.
# Built in the source folder, so that no path of the build machine gets into messages of the DLLs.
Build() {
    cd "$sources/ffmpeg"
    # a folder with the static zlib alone: beside it the linker would prefer the import library
    mkdir zlib
    cp /usr/$host/include/zlib.h /usr/$host/include/zconf.h /usr/$host/lib/libz.a zlib
    bash "$recipes/ffmpeg-math.sh" "$sources/musl" math $host-gcc-win32
    bash "$recipes/ffmpeg-components.sh" . >components.txt
    ./configure --prefix=$prefix --target-os=mingw32 --arch=x86_64 --enable-cross-compile \
        --cross-prefix=$host- --cc=$host-gcc-win32 --x86asmexe=nasm \
        --enable-shared --disable-static --disable-debug --disable-programs --disable-doc \
        --disable-autodetect --disable-network --disable-everything \
        --disable-avdevice --disable-avfilter --disable-swscale --disable-postproc \
        --enable-swresample --enable-w32threads --disable-pthreads --enable-zlib \
        --extra-cflags=-Izlib --extra-ldflags="-static-libgcc -Lzlib -Lmath" \
        --extra-libs=-lscalarmath $(cat components.txt)
    make -j"$jobs"
    make install DESTDIR="$install"
}

Licences() {
    # the files of the packages only refer to this text
    cp "$sources/ffmpeg/COPYING.LGPLv2.1" "$1/LGPL-2.1.txt"
    cp /usr/share/doc/libz-mingw-w64-dev/copyright "$1/zlib.txt"
}
