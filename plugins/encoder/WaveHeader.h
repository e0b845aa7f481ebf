// The chunks around the samples of a wave file (Microsoft RIFF/WAVE, and RF64 of EBU Tech 3306 above 4 GB).
#pragma once

#include "foundation/XTagList.h"

#include <cstdint>
#include <vector>

using ByteVector = std::vector<unsigned char>;

struct WaveLayout {
    bool isFloat = false;
    int sampleBytes = 2;
    int channels = 2;
    std::uint32_t frequency = 44100;
    std::uint32_t channelMask = 0;

    [[nodiscard]] std::uint32_t FrameBytes() const noexcept {
        return static_cast<std::uint32_t>(sampleBytes) * static_cast<std::uint32_t>(channels);
    }
};

// Everything before the first sample; its size depends on the layout alone, so the header can be
// written anew when the sizes are known. A JUNK chunk keeps the place of the sizes of RF64.
// `dataBytes` are those of the samples, `fileBytes` those of the whole file.
[[nodiscard]] ByteVector BuildWaveHeader(const WaveLayout& layout, std::uint64_t dataBytes,
                                         std::uint64_t fileBytes);

// LIST chunk of type INFO with the tags that it has a name for; empty without one.
[[nodiscard]] ByteVector BuildInfoChunk(const XTagList& tags);
// A chunk around bytes, padded to an even size; empty for no bytes.
[[nodiscard]] ByteVector BuildChunk(const char* id, const ByteVector& bytes);
