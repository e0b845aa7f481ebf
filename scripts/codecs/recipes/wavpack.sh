Build() {
    Autotools wavpack --disable-apps --disable-tests
}
