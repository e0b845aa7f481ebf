// The arithmetic of drawn texts: shortening to a width, tab stops, the height of several lines.
// How wide a text is, callers tell.
#pragma once

#include "foundation/XString.h"

#include <cstdint>
#include <functional>
#include <vector>

inline constexpr int longestFittedText = 3000; // characters

// Shortens `text` until it is narrower than `maxWidth`: the longest head for which that holds with
// "..." behind it, or the empty text without dots. True if characters had to go for the width; the
// cut to `longestFittedText`, made first, does not count and leaves no dots.
// `measure` answers pixels. Heads are searched by halves: a longer head may be narrower than a
// shorter one only through the shape of its last few characters.
bool FitText(XString& text, int maxWidth, const std::function<int(const XString&)>& measure);

// Tab stops every 8 average characters, in pixels from where the text starts, for one that starts
// at `tabOrigin`. Enough of them for a line across the desktop. `averageWidth` is at least 1.
[[nodiscard]] std::vector<std::int32_t> TabStops(int averageWidth, int tabOrigin, int desktopWidth);

[[nodiscard]] constexpr int TextBlockHeight(int lines, int lineHeight, int lineGap) noexcept {
    return lines > 0 ? lines * lineHeight + (lines - 1) * lineGap : 0;
}
