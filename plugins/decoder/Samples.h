// From the sample layouts of FFmpeg's decoders to the contract's: interleaved int32 or float.
#pragma once

#include <cstdint>

struct AVFrame;

// The kind and depth that samples of one decoder format become.
struct SampleLayout {
    bool isFloat = false;
    int bits = 16; // valid bits of integer samples; 32 for float
};

// `format` is an AVSampleFormat, `rawBits` the decoder's valid bits or 0.
[[nodiscard]] SampleLayout LayoutOf(int format, int rawBits) noexcept;

// Writes `count` frames from `offset` on, interleaved, 4 bytes per sample.
void ConvertSamples(const AVFrame& frame, int offset, int count, const SampleLayout& layout,
                    void* out) noexcept;
