// One line of output: UTF-8, a line feed at its end, control characters shown as blanks. Portable.
#pragma once

#include "foundation/XString.h"
#include "foundation/XUtf8.h"

#include <vector>

inline std::vector<char> Utf8Line(const XString& text) {
    XString line = text;
    for (int i = 1; i <= line.Count(); ++i)
        if (line.CharAt(i) < 32)
            line.SetCharAt(i, L' ');
    std::vector<char> bytes(static_cast<std::size_t>(WideToUtf8(line, nullptr, 0)));
    WideToUtf8(line, bytes.data(), static_cast<int>(bytes.size()));
    bytes.back() = '\n'; // in the terminator's place
    return bytes;
}
