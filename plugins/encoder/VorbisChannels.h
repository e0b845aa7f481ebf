// The channel orders of Vorbis I (4.3.9), which Opus has too: fixed places for each number of channels.
#pragma once

#include "plugins/common/PcmFormat.h"

struct VorbisChannels {
    static constexpr int most = 8;

    // For a source of 1 to 8 channels. Where the places of its channels have no order of their own,
    // the smallest order that has them all is taken, and its other channels stay silent.
    void Choose(const PcmFormat& source) noexcept;
    // As `source`, in floats at full scale 1.0. `in` is in the source's kind.
    void Convert(const PcmFormat& source, const void* in, float* out, std::size_t frames) const noexcept;
    // Says that places are filled up with silence or were lost; empty as a rule.
    [[nodiscard]] XString Information(const wchar_t* target, const PcmFormat& source) const;

    int count = 2;
    int from[most] = {0, 1}; // the source's channel for each of ours; -1: silence
    bool hasLostPlaces = false;
};
