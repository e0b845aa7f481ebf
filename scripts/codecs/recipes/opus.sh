# Stack protector and fortify would need run-time libraries that the plug-ins do not link. The messages of assertions
# name source files: without the build's folder.
Build() {
    local flags="-O2 -fmacro-prefix-map=$sources/="
    Autotools opus --disable-doc --disable-extra-programs --disable-stack-protector \
        CFLAGS="$flags -D_FORTIFY_SOURCE=0"
    Autotools libopusenc --disable-doc --disable-examples CFLAGS="$flags"
}
