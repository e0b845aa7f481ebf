// Samples as floats, for arithmetic, and back to the kind and depth in which they came. Portable.
#pragma once

#include "plugins/common/PcmConvert.h"
#include "plugins/common/PcmFormat.h"

class FloatBridge {
public:
    void Open(const PcmFormat& format) noexcept;
    // `count` samples. Float sources are given back as they are.
    [[nodiscard]] const float* ToFloat(const void* samples, std::size_t count);
    // With dither where depth is lost. The result lives until the next call, or is `samples`.
    [[nodiscard]] const void* FromFloat(const float* samples, std::size_t count);
    [[nodiscard]] std::uint64_t Clipped() const noexcept { return depth.Clipped(); } // samples since Open

private:
    bool isFloat = true;
    int bits = 32;
    DepthChanger depth;
    std::vector<float> floats;
};

[[nodiscard]] std::uint64_t MsToFrames(std::uint64_t milliseconds,
                                       std::uint32_t frequency) noexcept; // rounded
