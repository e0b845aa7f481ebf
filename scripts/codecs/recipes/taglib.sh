compiledIn=(libz-mingw-w64-dev libutfcpp-dev)

Build() {
    # a copy: the package's own folder sits among the native headers, which must stay out of the search
    mkdir -p "$objects/utf8cpp"
    cp -rL /usr/include/utf8cpp/. "$objects/utf8cpp"
    CMakeLibrary taglib -DBUILD_TESTING=OFF -DBUILD_EXAMPLES=OFF -DBUILD_BINDINGS=OFF \
        -DCMAKE_CXX_FLAGS="-isystem $objects/utf8cpp" \
        -DZLIB_LIBRARY=/usr/$host/lib/libz.a -DZLIB_INCLUDE_DIR=/usr/$host/include
    cp /usr/$host/lib/libz.a "$install$prefix/lib"
}

Licences() {
    cp /usr/share/doc/libz-mingw-w64-dev/copyright "$1/zlib.txt"
    cp /usr/share/doc/libutfcpp-dev/copyright "$1/utfcpp.txt"
}
