// Another sample rate at the quality of a mastering tool, by soxr. Double samples in and out, linear
// phase, no delay: the first frame stands for the first, and the length is kept to the frame.
#pragma once

#include "foundation/XString.h"

#include <cstdint>
#include <memory>
#include <vector>

// Aliases stay 170 dB below what they come from, or 120 dB in half of the time.
enum RateQuality : int { rateVeryHigh, rateHigh };

class RateChanger {
public:
    // False with a text for the user.
    [[nodiscard]] bool Open(int channels, std::uint32_t from, std::uint32_t to, RateQuality quality,
                            XString& error);
    // Interleaved frames; null: no more come, and what is held is given out, so that the whole has
    // RateFrames(all frames). The result lives until the next call; false on failure.
    [[nodiscard]] bool Convert(const double* samples, std::size_t frames, XString& error);
    [[nodiscard]] const double* Output() const noexcept { return output.data(); }
    [[nodiscard]] std::size_t OutputFrames() const noexcept { return outputFrames; }

private:
    struct Closer {
        void operator()(void* engine) const noexcept;
    };
    [[nodiscard]] bool Run(const double* samples, std::size_t frames, XString& error);

    std::unique_ptr<void, Closer> engine;
    std::size_t channels = 0;
    std::uint32_t oldRate = 0, newRate = 0;
    std::uint64_t taken = 0; // frames at the old rate
    std::uint64_t given = 0; // and at the new one
    std::vector<double> output;
    std::size_t outputFrames = 0;
};

// So many frames at another rate, rounded.
[[nodiscard]] constexpr std::uint64_t RateFrames(std::uint64_t frames, std::uint32_t from,
                                                 std::uint32_t to) noexcept {
    return frames / from * to + (frames % from * to + from / 2) / from;
}
