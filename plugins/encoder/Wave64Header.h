// The chunks around the samples of a Wave64 file (Sony, "Sound Forge Wave64"): GUIDs for names, 64-bit
// sizes that count their own 24 bytes, every chunk on a multiple of 8. Little-endian.
#pragma once

#include "plugins/common/ByteWriter.h"
#include "plugins/common/Information.h"
#include "plugins/encoder/PcmLayout.h"

inline constexpr std::size_t wave64ChunkHead = 24; // the header ends with that of "data"

// Of a size that depends on the layout alone; both numbers are 0 as long as they are unknown.
// `dataBytes` are those of the samples without padding, `fileBytes` those of the whole file.
[[nodiscard]] ByteVector BuildWave64Header(const PcmLayout& layout, std::uint64_t dataBytes,
                                           std::uint64_t fileBytes);
// The summary list: texts in UTF-16 under the names of RIFF's INFO list; empty without one. Everything
// else goes to `leftOut`.
[[nodiscard]] ByteVector BuildWave64Summary(const XTagList& tags, LeftOutTags& leftOut);
