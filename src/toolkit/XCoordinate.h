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

// Pixels. `size` is the record's size along this axis, `extent` that of the list's box. Sums wrap.
[[nodiscard]] std::int32_t ResolveCoordinate(std::int32_t coordinate, std::int32_t size, std::int32_t extent,
                                             std::int32_t origin) noexcept;

// Whether a record shows: with mask 0 always, otherwise when all its bits are active.
[[nodiscard]] constexpr bool PassesMask(std::uint32_t mask, std::uint32_t active) noexcept {
    return (active & mask) == mask;
}
