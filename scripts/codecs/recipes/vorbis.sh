Build() {
    Autotools libogg
    # what its configure sets for Linux alone: the rounding of a lossy encoder does not matter
    Autotools libvorbis --disable-docs --disable-examples --disable-oggtest \
        CFLAGS="-O3 -ffast-math -fsigned-char"
}
