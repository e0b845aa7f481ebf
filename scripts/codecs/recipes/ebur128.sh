Build() {
    CMakeLibrary libebur128
}
