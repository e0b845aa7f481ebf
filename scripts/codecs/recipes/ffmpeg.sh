compiledIn=(libz-mingw-w64-dev)
export SOURCE_DATE_EPOCH=0 # the time that linker and strip write into DLLs: the same in every build

# FFmpeg seeks each new tag among all others, and appends values of one name by copying the earlier ones: a file
# of a million tags would keep it busy for hours. Beyond sensible numbers they are left out here; TagLib reads them.
LimitTags() {
    local limit='    if (copy_value \&\& (tag ? (flags \& AV_DICT_APPEND) \&\& strlen(tag->value) > 4096 : m->count >= 1024)) {\
        av_free(copy_key);\
        av_free(copy_value);\
        return 0;\
    }\
'
    sed -i "/^int av_dict_set(/,/^}/ s/^    if (tag) {\$/$limit&/" libavutil/dict.c
    [ "$(grep -c 'm->count >= 1024' libavutil/dict.c)" = 1 ]
}

# gcc with win32 threads: the posix one would make the DLLs import a thread library of its own.
# Pages of a DLL stand in it as in memory: Wine maps such a file, and copies any other in every worker.
# Built in the source folder, so that no path of the build machine gets into messages of the DLLs.
Build() {
    cd "$sources/ffmpeg"
    LimitTags
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
        --extra-cflags=-Izlib --extra-ldflags="-static-libgcc -Lzlib -Lmath -Wl,--file-alignment,4096" \
        --extra-libs=-lscalarmath $(cat components.txt)
    make -j"$jobs"
    make install DESTDIR="$install"
}

Licences() {
    # the files of the packages only refer to this text
    cp "$sources/ffmpeg/COPYING.LGPLv2.1" "$1/LGPL-2.1.txt"
    cp /usr/share/doc/libz-mingw-w64-dev/copyright "$1/zlib.txt"
}
