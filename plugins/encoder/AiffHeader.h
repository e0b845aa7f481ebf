// The chunks in front of the samples of an AIFF file, and of AIFF-C for float samples (Apple, "Audio
// Interchange File Format" 1.3 and "AIFF-C" draft of 1991). Big-endian.
#pragma once

#include "plugins/common/ByteWriter.h"
#include "plugins/encoder/PcmLayout.h"

inline constexpr std::uint64_t mostAiffBytes = 0xFFFFFFFF; // sizes have 32 bits

// Of a size that depends on the layout alone; both numbers are 0 as long as they are unknown.
// `dataBytes` are those of the samples without padding, `fileBytes` those of the whole file.
[[nodiscard]] ByteVector BuildAiffHeader(const PcmLayout& layout, std::uint64_t dataBytes,
                                         std::uint64_t fileBytes);
// A chunk around bytes, padded to an even size; empty for no bytes.
[[nodiscard]] ByteVector BuildAiffChunk(const char* id, const ByteVector& bytes);
