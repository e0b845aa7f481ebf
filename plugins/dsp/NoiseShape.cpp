#include "plugins/dsp/NoiseShape.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {
constexpr int points = 2048; // of the spectrum, up to half of the rate
constexpr double highestThreshold = 30, lowestFrequency = 20;
} // namespace

double HearingThreshold(double frequency) noexcept {
    const double kHz = std::max(frequency, lowestFrequency) / 1000;
    return 3.64 * std::pow(kHz, -0.8) - 6.5 * std::exp(-0.6 * (kHz - 3.3) * (kHz - 3.3)) +
           1e-3 * std::pow(kHz, 4);
}

NoiseShape QuietestNoise(std::uint32_t frequency) noexcept {
    std::array<double, noiseShapeOrder + 1> correlation{};
    for (int i = 0; i < points; ++i) {
        const double place = (i + 0.5) / points;
        const double weight =
            std::pow(10.0, -std::min(HearingThreshold(place * frequency / 2), highestThreshold) / 10);
        for (int lag = 0; lag <= noiseShapeOrder; ++lag)
            correlation[static_cast<std::size_t>(lag)] += weight * std::cos(std::numbers::pi * place * lag);
    }
    NoiseShape filter{};
    double left = correlation[0];
    for (std::size_t n = 0; n < filter.size(); ++n) {
        double reflection = correlation[n + 1];
        for (std::size_t i = 0; i < n; ++i)
            reflection -= filter[i] * correlation[n - i];
        reflection /= left;
        const NoiseShape shorter = filter;
        for (std::size_t i = 0; i < n; ++i)
            filter[i] -= reflection * shorter[n - 1 - i];
        filter[n] = reflection;
        left *= 1 - reflection * reflection;
    }
    return filter;
}
