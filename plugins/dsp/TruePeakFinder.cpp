#include "plugins/dsp/TruePeakFinder.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr std::size_t run = 64; // frames
constexpr double kaiserBeta = 6;

double BesselI0(double x) {
    double sum = 1, term = 1;
    for (int k = 1; term > 1e-12 * sum; ++k) {
        term *= (x / (2 * k)) * (x / (2 * k));
        sum += term;
    }
    return sum;
}

// A sinc under a Kaiser window that ends at +-`half`.
double Kernel(double t, double half) {
    const double place = t / half;
    if (std::abs(place) >= 1)
        return 0;
    const double window = BesselI0(kaiserBeta * std::sqrt(1 - place * place)) / BesselI0(kaiserBeta);
    const double angle = std::numbers::pi * t;
    return window * (angle == 0 ? 1 : std::sin(angle) / angle);
}

} // namespace

void TruePeakFinder::Open(std::size_t channelCount, std::uint32_t frequency, double least) {
    channels = channelCount;
    const int places = frequency < 96000 ? 4 : frequency < 192000 ? 2 : 1;
    filters.clear();
    double highestSum = 1;
    for (int place = 1; place < places; ++place) {
        double row[taps], sum = 0, magnitudes = 0;
        for (std::size_t tap = 0; tap < taps; ++tap) {
            const double t = static_cast<double>(tap) - static_cast<double>(before);
            row[tap] = Kernel(t - static_cast<double>(place) / places, after);
            sum += row[tap];
        }
        for (const double value : row) {
            filters.push_back(static_cast<float>(value / sum));
            magnitudes += std::abs(value / sum);
        }
        highestSum = std::max(highestSum, magnitudes);
    }
    harmless = static_cast<float>(least / highestSum);
    between.resize(run * channels);
}

bool TruePeakFinder::IsHarmless(const float* samples, std::size_t frames) const {
    float highest = 0;
    const float* const end = samples + (frames + after) * channels;
    for (const float* in = samples - before * channels; in < end; ++in)
        highest = std::max(highest, std::abs(*in));
    return highest <= harmless;
}

void TruePeakFinder::FindRun(const float* samples, std::size_t frames, float* peaks) {
    const std::size_t count = frames * channels;
    for (std::size_t frame = 0; frame < frames; ++frame) {
        peaks[frame] = 0;
        for (std::size_t i = frame * channels; i < (frame + 1) * channels; ++i)
            peaks[frame] = std::max(peaks[frame], std::abs(samples[i]));
    }
    for (std::size_t row = 0; row < filters.size(); row += taps) {
        std::fill_n(between.begin(), count, 0.0f);
        // Tap by tap over all samples, so that the compiler can take several at a time.
        for (std::size_t tap = 0; tap < taps; ++tap) {
            const float factor = filters[row + tap];
            const float* const in = samples - before * channels + tap * channels;
            for (std::size_t i = 0; i < count; ++i)
                between[i] += factor * in[i];
        }
        for (std::size_t i = 0; i < count; ++i)
            peaks[i / channels] = std::max(peaks[i / channels], std::abs(between[i]));
    }
}

void TruePeakFinder::Find(const float* samples, std::size_t frames, float* peaks) {
    while (frames > 0) {
        const std::size_t step = std::min(frames, run);
        if (IsHarmless(samples, step))
            std::fill_n(peaks, step, 0.0f);
        else
            FindRun(samples, step, peaks);
        samples += step * channels;
        peaks += step;
        frames -= step;
    }
}
