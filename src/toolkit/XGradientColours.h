// The colours of a gradient between four corners, by column or by row. Colours are 0x00BBGGRR.
#pragma once

#include <cstdint>

struct XCornerColours {
    std::uint32_t TopLeft = 0, TopRight = 0, BottomLeft = 0, BottomRight = 0;

    // Nothing changes from top to bottom: columns of one colour each.
    [[nodiscard]] constexpr bool IsHorizontal() const noexcept {
        return TopLeft == BottomLeft && TopRight == BottomRight;
    }
};

// Red, green and blue each `step` of `span` on the way, truncated. 0 <= step <= span, span >= 1.
[[nodiscard]] std::uint32_t ColourBetween(std::uint32_t from, std::uint32_t to, std::int32_t step,
                                          std::int32_t span) noexcept;
