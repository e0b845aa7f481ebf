// The order in which the flags of a coordinate count.
#include "toolkit/XCoordinate.h"

std::int32_t ResolveCoordinate(std::int32_t coordinate, std::int32_t size, std::int32_t extent,
                               std::int32_t origin) noexcept {
    std::int32_t base = 0;
    const auto takes = [&coordinate](std::int32_t flag) {
        const bool set = (coordinate & flag) != 0;
        coordinate &= ~flag;
        return set;
    };
    if (takes(anchorHalf))
        base = extent / 2;
    if (takes(anchorFar))
        base = WrapAdd(base, extent);
    if (takes(anchorCentre))
        base = WrapSubtract(base, size / 2);
    if (takes(anchorEnd))
        base = WrapSubtract(base, size);
    if (coordinate & anchorBack) // the bit stays set, so what is left is the negated offset
        coordinate = WrapSubtract(anchorBack, coordinate);
    return WrapAdd(WrapAdd(coordinate, base), origin);
}
