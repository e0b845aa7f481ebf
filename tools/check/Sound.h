// The audio that plug-ins get from the checker, and how what comes back is compared with it. Portable.
#pragma once

#include "contract/Plugin.h"

#include <vector>

struct Sound {
    AudioFormatRecord format{};
    std::vector<std::int32_t> samples; // interleaved, floats by their bits
    [[nodiscard]] std::uint64_t Frames() const { return samples.size() / format.channels; }
};

[[nodiscard]] AudioFormatRecord SoundFormat(bool isFloat, int bits, int channels, std::uint32_t frequency);
// A low tone in every channel, each softer than the one before it, so that lossy codecs keep the levels
// and channels that change places are noticed.
[[nodiscard]] Sound MakeSound(const AudioFormatRecord& format, std::uint32_t milliseconds);
// Root mean square of one channel, full scale being 1.
[[nodiscard]] double LevelOf(const Sound& sound, int channel);
