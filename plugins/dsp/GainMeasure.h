// What was measured of one output, as the workers leave it for the end of the batch. Portable.
#pragma once

#include "foundation/XString.h"
#include "plugins/common/ByteWriter.h"
#include "plugins/dsp/LoudnessHistogram.h"

struct GainMeasure {
    XString output; // path
    XString album;  // see AlbumKey
    double peak = 0;
    LoudnessHistogram histogram;
};

// Image, little-endian: "TMGM", u32 version (1), output and album as u32 count and so many UTF-16 units,
// the peak as an IEEE double, u32 number of bins, and for each u32 bin and u64 blocks.
[[nodiscard]] ByteVector WriteGainMeasure(const GainMeasure& measure);
// False unless the whole image is sound; `measure` is then of no use.
[[nodiscard]] bool ReadGainMeasure(const unsigned char* bytes, std::size_t size, GainMeasure& measure);

// A short file name for an output's measure; that of another output is the same once in 2^64.
[[nodiscard]] XString GainMeasureName(const XString& output);
