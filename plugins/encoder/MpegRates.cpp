// Rates of MPEG-1, MPEG-2 (ISO 11172-3, 13818-3) and the unofficial MPEG-2.5; of AAC (ISO 14496-3).
#include "plugins/encoder/MpegRates.h"

namespace {

constexpr std::uint32_t mpegRates[] = {8000, 11025, 12000, 16000, 22050, 24000, 32000, 44100, 48000};
constexpr std::uint32_t aacRates[] = {7350,  8000,  11025, 12000, 16000, 22050, 24000,
                                      32000, 44100, 48000, 64000, 88200, 96000};

template <int count>
std::uint32_t RateFor(std::uint32_t frequency, const std::uint32_t (&rates)[count]) noexcept {
    for (const std::uint32_t rate : rates)
        if (frequency <= rate)
            return rate;
    return frequency % 44100 == 0 ? rates[count - 2] : rates[count - 1];
}

} // namespace

std::uint32_t MpegRateFor(std::uint32_t frequency) noexcept {
    return RateFor(frequency, mpegRates);
}

std::uint32_t AacRateFor(std::uint32_t frequency) noexcept {
    return RateFor(frequency, aacRates);
}
