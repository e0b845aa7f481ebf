// Runs of UTF-16 units, for XString's own sources.
#pragma once

#include <cstdint>
#include <cstring>

inline wchar_t FoldUp(wchar_t ch) noexcept {
    return ch >= L'a' && ch <= L'z' ? static_cast<wchar_t>(ch - 32) : ch;
}

inline wchar_t FoldDown(wchar_t ch) noexcept {
    return ch >= L'A' && ch <= L'Z' ? static_cast<wchar_t>(ch + 32) : ch;
}

inline void CopyUnits(wchar_t* to, const wchar_t* from, std::int64_t units) noexcept {
    if (units > 0)
        std::memmove(to, from, static_cast<std::size_t>(units) * sizeof(wchar_t));
}

// 0-based index of the first match at or behind `start`; -1 if none.
inline int FindUnits(const wchar_t* text, int count, const wchar_t* needle, int needleCount, int start,
                     bool ignoreCase) {
    for (int i = start; i + static_cast<std::int64_t>(needleCount) <= count; ++i) {
        int k = 0;
        if (ignoreCase)
            while (k < needleCount && FoldUp(text[i + k]) == FoldUp(needle[k]))
                ++k;
        else
            while (k < needleCount && text[i + k] == needle[k])
                ++k;
        if (k == needleCount)
            return i;
    }
    return -1;
}
