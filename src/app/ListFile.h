// The list of sources that another program hands over: UTF-16LE, one path a line. Portable.
#pragma once

#include "foundation/XArray.h"

#include <cstdint>

// Appends the lines that are not empty. A line ends at LF, CR LF or a lone CR; byte-order marks at
// its start, zero units and an odd last byte are dropped.
void ParseListFile(const void* bytes, std::uint64_t byteCount, XStringArray& lines);
