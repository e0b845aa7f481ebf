// What a library file says of itself before it is loaded: exports and imports. Portable.
//
// The format is Microsoft's PE/COFF: DOS header, "PE\0\0", COFF header, optional header with the data
// directories, section headers.
#pragma once

#include "foundation/XArray.h"

struct PeImage {
    bool isPe = false;    // a program or library at all
    bool is64Bit = false; // for x64; only then are the lists read
    bool isLibrary = false;
    XStringArray exports; // by name
    XStringArray imports; // names of libraries, delay-loaded ones not counted
};

// A damaged file yields shorter lists.
void ReadPeImage(const void* bytes, std::uint64_t size, PeImage& out);
