Build() {
    Autotools wavpack --disable-apps --disable-tests CFLAGS=-O3
}
