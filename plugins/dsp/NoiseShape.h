// The filter that moves the noise of rounding to where ears are deaf. Portable.
#pragma once

#include <array>
#include <cstdint>

inline constexpr int noiseShapeOrder = 9;
using NoiseShape = std::array<double, noiseShapeOrder>;

// Coefficients c of 1 - c1 z^-1 - ... - c9 z^-9, which the spectrum of the noise is to have at this rate.
//
// Of all filters of that length it leaves the least noise as ears weigh it, and it is found like this:
// noise of power |H|^2, weighed by w, is least when H is the prediction error filter of a signal whose
// spectrum is w (Gerzon and Craven, "Optimal noise shaping and dither of digital signals", AES 1989);
// its coefficients come from the autocorrelation of w by the Levinson-Durbin recursion. w is the inverse
// of the threshold in quiet (Terhardt, "Calculating virtual pitch", 1979), which is held at 30 dB, lest
// all noise be piled up above 16 kHz. At 44.1 kHz noise is 21 dB lower around 3.5 kHz and 15 dB higher
// at the top, 14 dB lower as weighed and 10 dB higher in all.
[[nodiscard]] NoiseShape QuietestNoise(std::uint32_t frequency) noexcept;

// The threshold of hearing in quiet at so many Hz, in dB.
[[nodiscard]] double HearingThreshold(double frequency) noexcept;
