// The chunks around the samples of a wave file (Microsoft RIFF/WAVE, and RF64 of EBU Tech 3306 above 4 GB).
#pragma once

#include "foundation/XTagList.h"
#include "plugins/common/ByteWriter.h"
#include "plugins/encoder/PcmLayout.h"

// Everything before the first sample; its size depends on the layout alone, so the header can be
// written anew when the sizes are known. A JUNK chunk keeps the place of the sizes of RF64.
// `dataBytes` are those of the samples, `fileBytes` those of the whole file, both 0 as long as unknown.
[[nodiscard]] ByteVector BuildWaveHeader(const PcmLayout& layout, std::uint64_t dataBytes,
                                         std::uint64_t fileBytes);
// The content of a format chunk: WAVEFORMATEX, or WAVEFORMATEXTENSIBLE where that is not enough.
[[nodiscard]] ByteVector BuildWaveFormat(const PcmLayout& layout);

// LIST chunk of type INFO with the tags that it has a name for; empty without one.
[[nodiscard]] ByteVector BuildInfoChunk(const XTagList& tags);
// A chunk around bytes, padded to an even size; empty for no bytes.
[[nodiscard]] ByteVector BuildChunk(const char* id, const ByteVector& bytes);
