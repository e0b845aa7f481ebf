// The audio format of the contract, checked once, and its speaker masks.
#pragma once

#include "contract/Plugin.h"
#include "foundation/XString.h"

#include <cstdint>

struct PcmFormat {
    bool isFloat = false;
    int bits = 16; // valid bits of integers; 32 for float
    // Decoded from a coding with loss: float, but with nothing worth keeping below 16 bits.
    bool isLossy = false;
    int channels = 2;
    std::uint32_t frequency = 44100;
    std::uint32_t channelMask = 0; // one bit per channel, or 0 if the places are unknown
    std::uint64_t frameCount = 0;  // 0 if unknown
    std::uint64_t lengthMs = 0;

    // The announced length in frames, a guess by the play length if need be; 0 if unknown.
    [[nodiscard]] std::uint64_t ExpectedFrames() const noexcept;
};

// False and a text for the user if the record is no format that anybody could encode.
[[nodiscard]] bool ReadFormat(const AudioFormatRecord* record, PcmFormat& format, XString& error);
// The usual places of so many channels, as players assume them; 0 above 8.
[[nodiscard]] std::uint32_t UsualChannelMask(int channels) noexcept;
