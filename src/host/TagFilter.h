// Keeps oversized tags out of what every copy of a file's record would carry. Portable.
#pragma once

#include "foundation/XBuffer.h"

inline constexpr std::uint64_t tagRecordLimit = 1024; // bytes of key, value and blob

// Reads an image of a list of tags and writes it without the records above the limit (pictures,
// long texts). `out` stays as it is, and the answer is false, if memory ran out.
bool FilterTagImage(const void* image, std::uint64_t size, XBuffer& out);
