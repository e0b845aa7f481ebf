#include "plugins/dsp/Quantizer.h"

#include <algorithm>
#include <cmath>

namespace {
// Rounding and dither alone; more comes of clipping, which must not be made up for later.
constexpr double largestError = 1.5;
} // namespace

void Quantizer::Open(int channelCount, std::uint32_t frequency, int bits, DitherKind dither) {
    *this = Quantizer();
    kind = bits < leastUnditheredBits ? dither : ditherNone;
    channels = static_cast<std::size_t>(channelCount);
    scale = static_cast<double>(std::uint64_t{1} << (bits - 1));
    if (kind == ditherShaped) {
        shape = QuietestNoise(frequency);
        errors.resize(channels);
    }
}

// Two numbers of 32 bits from one step of SplitMix64 (Steele, Lea and Flood 2014).
double Quantizer::NextDither() noexcept {
    random += 0x9E3779B97F4A7C15;
    std::uint64_t mixed = random;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EB;
    mixed ^= mixed >> 31;
    return (static_cast<double>(mixed & 0xFFFFFFFF) - static_cast<double>(mixed >> 32)) / 4294967296.0;
}

template <bool shaped>
std::int32_t Quantizer::Dithered(double value, Errors& past) noexcept {
    double wanted = value;
    if constexpr (shaped)
        for (std::size_t i = 0; i < past.size(); ++i)
            wanted -= shape[i] * past[i];
    const double rounded = std::clamp(std::floor(wanted + NextDither() + 0.5), -scale, scale - 1);
    if constexpr (shaped) {
        std::copy_backward(past.begin(), past.end() - 1, past.end());
        past[0] = std::clamp(rounded - wanted, -largestError, largestError);
    }
    return static_cast<std::int32_t>(rounded);
}

const std::int32_t* Quantizer::Convert(const double* samples, std::size_t frames) {
    const std::size_t count = frames * channels;
    result.resize(std::max(result.size(), count));
    Errors unused{};
    for (std::size_t i = 0; i < count; ++i) {
        double value = samples[i] * scale;
        if (!(value == value)) // not a number
            value = 0;
        clipped += value > scale || value < -scale;
        value = std::clamp(value, -scale, scale - 1);
        const double nearest = std::floor(value + 0.5);
        dithers = dithers || (kind != ditherNone && value != nearest);
        if (!dithers)
            result[i] = static_cast<std::int32_t>(nearest);
        else if (kind == ditherShaped)
            result[i] = Dithered<true>(value, errors[i % channels]);
        else
            result[i] = Dithered<false>(value, unused);
    }
    return result.data();
}
