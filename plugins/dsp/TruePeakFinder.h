// The peaks of a signal between its samples, where the analogue signal passes them. Portable.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

// Looks at three places between two samples (one from 96 kHz on, none from 192 kHz on), by a windowed
// sinc over the samples around.
class TruePeakFinder {
public:
    static constexpr std::size_t before = 15, after = 16; // frames that Find reads around a frame

    // Where no sample around comes so far that a peak could pass `least`, none need be found.
    void Open(std::size_t channels, std::uint32_t frequency, double least);
    // For each of the interleaved frames the highest peak of all channels from it to the next frame,
    // without the next. Those that can't pass `least` may be given as 0.
    void Find(const float* samples, std::size_t frames, float* peaks);

private:
    static constexpr std::size_t taps = before + 1 + after;

    [[nodiscard]] bool IsHarmless(const float* samples, std::size_t frames) const;
    void FindRun(const float* samples, std::size_t frames, float* peaks);

    std::size_t channels = 0;
    float harmless = 0;
    std::vector<float> filters; // a row of taps per place
    std::vector<float> between;
};
