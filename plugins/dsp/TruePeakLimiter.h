// Keeps true peaks below a ceiling: a limiter that looks ahead, so that the gain is down when the peak
// comes, and lets it up again slowly. All channels get the same gain. Portable.
#pragma once

#include "plugins/dsp/TruePeakFinder.h"

#include <deque>

class TruePeakLimiter {
public:
    // `limit` is linear, above 0, full scale being 1.
    void Open(std::size_t channels, std::uint32_t frequency, double limit);
    // Appends to `out` what is ready of these interleaved samples and earlier ones: as much comes out as
    // went in, at its place, and away from peaks above the limit bit by bit.
    void Pass(const float* samples, std::size_t frames, std::vector<float>& out);
    // Appends the rest.
    void End(std::vector<float>& out);

private:
    using Gain = std::int64_t; // in parts of `unity`: sums of integers stay exact
    static constexpr Gain unity = Gain{1} << 30;
    struct Low {
        std::uint64_t frame;
        Gain gain;
    };
    struct Box { // the mean of the last gains
        std::vector<Gain> last;
        std::size_t at = 0;
        Gain sum = 0;
        void Open(std::size_t length);
        [[nodiscard]] Gain Mean(Gain next);
    };

    [[nodiscard]] Gain Next(double peak);
    [[nodiscard]] Gain LowestWithinLook(Gain wanted);

    std::size_t channels = 0, history = 0;
    double ceiling = 1;
    TruePeakFinder finder;
    std::size_t look = 0;    // frames between a gain's beginning to fall and its peak
    std::vector<float> held; // `history` frames, then those whose gain is to be found
    std::vector<float> peaks;
    float lastPeak = 0;      // what came before the next frame
    std::uint64_t frame = 0; // that the next gain is found at; it is for the frame `look` before it
    std::deque<Low> lows;    // rising: the lowest gains wanted within `look`
    double releaseStep = 0;
    double released = 0; // in parts of unity
    Box first, second;
};
