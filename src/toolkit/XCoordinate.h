// Coordinates of display list records: a small pixel offset, and flag bits that anchor it to the
// box of the list. So one list serves any size.
#pragma once

#include <cstdint>

// 0x20000 is the far edge; anchorFar|anchorBack|2 two pixels short of it; anchorHalf|anchorCentre
// is centred; anchorFar|anchorEnd|anchorBack|4 ends four pixels short of the far edge. Offsets are
// 0..0xFFFF: a negative one is written with anchorBack, since -1 has all flags set.
inline constexpr std::int32_t anchorHalf = 0x10000;   // from half the extent
inline constexpr std::int32_t anchorFar = 0x20000;    // from the far edge
inline constexpr std::int32_t anchorEnd = 0x40000;    // the record ends at that point
inline constexpr std::int32_t anchorCentre = 0x80000; // the record is centred on that point
inline constexpr std::int32_t anchorBack = 0x100000;  // the offset counts backwards

// Sums of pixels that wrap instead of being undefined.
[[nodiscard]] constexpr std::int32_t WrapAdd(std::int32_t a, std::int32_t b) noexcept {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}
[[nodiscard]] constexpr std::int32_t WrapSubtract(std::int32_t a, std::int32_t b) noexcept {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

// Pixels. `size` is the record's size along this axis, `extent` that of the list's box.
[[nodiscard]] std::int32_t ResolveCoordinate(std::int32_t coordinate, std::int32_t size, std::int32_t extent,
                                             std::int32_t origin) noexcept;

// What coordinates refer to: the size of the list's box and its top left, in pixels.
struct XLayoutBox {
    std::int32_t Width = 0, Height = 0, X = 0, Y = 0;

    [[nodiscard]] std::int32_t Across(std::int32_t coordinate, std::int32_t size) const noexcept {
        return ResolveCoordinate(coordinate, size, Width, X);
    }
    [[nodiscard]] std::int32_t Down(std::int32_t coordinate, std::int32_t size) const noexcept {
        return ResolveCoordinate(coordinate, size, Height, Y);
    }
};

struct XEdges { // pixels
    std::int32_t Left, Top, Right, Bottom;
};

// The size of such a record is taken from the values as they stand, flags included: one that is
// centred or ends at a point needs the same flags on both edges.
template <class Record>
[[nodiscard]] XEdges ResolveEdges(const Record& record, const XLayoutBox& box) noexcept {
    const std::int32_t width = WrapSubtract(record.Right, record.Left);
    const std::int32_t height = WrapSubtract(record.Bottom, record.Top);
    return {box.Across(record.Left, width), box.Down(record.Top, height), box.Across(record.Right, width),
            box.Down(record.Bottom, height)};
}

// Whether a record shows: with mask 0 always, otherwise when all its bits are active.
[[nodiscard]] constexpr bool PassesMask(std::uint32_t mask, std::uint32_t active) noexcept {
    return (active & mask) == mask;
}
