// Rates of MPEG-1, MPEG-2 (ISO 11172-3, 13818-3) and the unofficial MPEG-2.5.
#include "plugins/encoder/MpegRates.h"

namespace {
constexpr std::uint32_t mpegRates[] = {8000, 11025, 12000, 16000, 22050, 24000, 32000, 44100, 48000};
}

std::uint32_t MpegRateFor(std::uint32_t frequency) noexcept {
    for (const std::uint32_t rate : mpegRates)
        if (frequency <= rate)
            return rate;
    return frequency % 44100 == 0 ? 44100 : 48000;
}
