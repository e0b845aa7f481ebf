// Formats of audio, as the worker tells them to plug-ins.
#pragma once

#include "contract/Plugin.h"

// With 0 bits floating point.
inline AudioFormatRecord PcmRecord(int channels, int bits, std::uint32_t frequency, std::uint32_t mask = 0) {
    AudioFormatRecord format{};
    format.sampleKind = bits == 0 ? ztSampleFloat : ztSampleInteger;
    format.bitsPerSample = static_cast<std::uint16_t>(bits == 0 ? 32 : bits);
    format.sampleBytes = 4;
    format.channels = static_cast<std::uint16_t>(channels);
    format.frequency = frequency;
    format.channelMask = mask;
    return format;
}
