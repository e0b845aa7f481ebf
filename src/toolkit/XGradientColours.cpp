// One step between two colours.
#include "toolkit/XGradientColours.h"

std::uint32_t ColourBetween(std::uint32_t from, std::uint32_t to, std::int32_t step,
                            std::int32_t span) noexcept {
    std::uint32_t colour = 0;
    for (unsigned shift = 0; shift < 24; shift += 8) {
        const std::int64_t start = from >> shift & 0xFF;
        const std::int64_t end = to >> shift & 0xFF;
        colour |= static_cast<std::uint32_t>(start + (end - start) * step / span) << shift;
    }
    return colour;
}
