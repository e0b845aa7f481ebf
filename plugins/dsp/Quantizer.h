// Doubles, with full scale at 1.0, to integers of any depth. Portable.
//
// Rounding to less than 24 bits is dithered, but only from the first sample on that does not fit the
// depth, so that what was only padded comes back bit by bit. Triangular dither is the sum of two random
// numbers of a step each: with the rounding itself it makes white noise of a quarter of a squared step,
// for 16 bits 93.3 dB below a sine of full scale, whatever the sound. Shaped noise is the same noise
// through the filter of NoiseShape.h.
#pragma once

#include "plugins/dsp/NoiseShape.h"

#include <cstddef>
#include <vector>

enum DitherKind : int { ditherTriangular, ditherShaped, ditherNone };
inline constexpr int leastUnditheredBits = 24;

class Quantizer {
public:
    void Open(int channels, std::uint32_t frequency, int bits, DitherKind dither);
    // Interleaved. What is above full scale is clipped. The result lives until the next call.
    [[nodiscard]] const std::int32_t* Convert(const double* samples, std::size_t frames);
    [[nodiscard]] std::uint64_t Clipped() const noexcept { return clipped; } // samples since Open

private:
    // The errors of a channel's last samples, in steps, the latest first.
    using Errors = std::array<double, noiseShapeOrder>;
    template <bool shaped>
    std::int32_t Dithered(double value, Errors& errors) noexcept;
    [[nodiscard]] double NextDither() noexcept; // steps

    DitherKind kind = ditherTriangular;
    std::size_t channels = 0;
    double scale = 0;
    bool dithers = false;
    std::uint64_t clipped = 0;
    NoiseShape shape{};
    std::vector<Errors> errors;
    std::uint64_t random = 0; // the same for every file: equal input, equal output
    std::vector<std::int32_t> result;
};
