// Brings audio to another rate or number of channels, to float samples.
#pragma once

#include "plugins/common/PcmFormat.h"

#include <memory>
#include <vector>

class Resampler {
public:
    Resampler();
    ~Resampler();
    Resampler(const Resampler&) = delete;
    Resampler& operator=(const Resampler&) = delete;

    // Channels are mixed down without ever exceeding full scale. False with a text for the user.
    [[nodiscard]] bool Open(const PcmFormat& from, int channels, std::uint32_t frequency, XString& error);
    // Frames in the source's kind; null: no more come, and what is held is given out, so that the whole
    // has source frames * new rate / old rate, rounded. Interleaved result in `Output`, which may be
    // `samples`, until the next call; false on failure.
    [[nodiscard]] bool Convert(const void* samples, std::uint32_t frames, XString& error);
    [[nodiscard]] const float* Output() const noexcept { return output; }
    [[nodiscard]] std::uint32_t OutputFrames() const noexcept { return outputFrames; }

private:
    struct Engine;
    [[nodiscard]] const float* Mixed(const void* samples, std::uint32_t frames);

    std::unique_ptr<Engine> engine;
    std::vector<float> input, mixed, resampled;
    const float* output = nullptr;
    std::uint32_t outputFrames = 0;
};
