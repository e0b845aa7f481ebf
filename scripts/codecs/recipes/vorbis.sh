Build() {
    Autotools libogg
    Autotools libvorbis --disable-docs --disable-examples --disable-oggtest
}
