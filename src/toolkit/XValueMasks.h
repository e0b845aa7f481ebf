// The states of a row of a value list, as its display list tells them apart, and what drawing and
// filling of that list share.
#pragma once

#include "toolkit/XValueList.h"

#include <algorithm>

inline constexpr std::uint32_t maskEnabled = 1, maskDisabled = 2;
inline constexpr std::uint32_t maskSelected = 4, maskNotSelected = 8;
inline constexpr std::uint32_t maskOff = 16, maskOn = 32; // check and radio rows
inline constexpr std::uint32_t maskFocused = 64, maskNotFocused = 128;
inline constexpr std::uint32_t maskCaptionShown = 256; // no value control replaces it
inline constexpr std::uint32_t maskValueShown = 512;   // no value control covers it

inline constexpr COLORREF disabledColour = 0xC0C0C0;

// Up to the value. At least 1, as 0 would mean no limit.
[[nodiscard]] inline std::int32_t CaptionRoom(const clValueRow& row) {
    return std::max(1, row.ValueX - row.CaptionX);
}

// How a button shows on a row that is not selected.
[[nodiscard]] inline XString ButtonCaption(const clValueRow& row) {
    XString text(L"[ ");
    text += row.ButtonText;
    return text += L" ]";
}
