// Texts out of a fuzzer's bytes, and the way to say that something is wrong.
#pragma once

#include "foundation/XString.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

inline XString TextOf(const std::uint8_t* bytes, std::size_t count) {
    return XString(std::string(reinterpret_cast<const char*>(bytes), count).c_str());
}

inline void Demand(bool holds, const char* what) {
    if (holds)
        return;
    std::fprintf(stderr, "not true: %s\n", what);
    std::abort();
}
