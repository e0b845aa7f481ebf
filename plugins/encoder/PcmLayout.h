// How samples stand in a PCM file, and what a source becomes under the user's settings.
#pragma once

#include "plugins/common/PcmFormat.h"

#include <cstdint>

struct PcmLayout {
    bool isFloat = false;
    int sampleBytes = 2;
    int channels = 2;
    std::uint32_t frequency = 44100;
    std::uint32_t channelMask = 0;

    [[nodiscard]] std::uint32_t FrameBytes() const noexcept {
        return static_cast<std::uint32_t>(sampleBytes) * static_cast<std::uint32_t>(channels);
    }
};

// As the source has it unless the settings say else, and 16 bits for sources that were coded with loss.
// The settings have been checked against PcmOption::all.
[[nodiscard]] PcmLayout PcmLayoutOf(const PcmFormat& source, const wchar_t* settings);
