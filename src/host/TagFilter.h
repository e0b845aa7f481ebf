// Keeps oversized tags out of what every copy of a file's record would carry. Portable.
#pragma once

#include "foundation/XBuffer.h"

inline constexpr std::uint64_t tagRecordLimit = 1024; // bytes of key, value and blob
inline constexpr std::uint32_t tagCountLimit = 65536; // records; a longer list is damage

// Reads an image of a list of tags and writes it without the records above the limit (pictures,
// long texts). The answer is false, and `out` is of no use, if memory ran out or the
// image is damaged beyond a list of no sensible length.
bool FilterTagImage(const void* image, std::uint64_t size, XBuffer& out);
