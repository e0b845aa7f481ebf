#include "plugins/dsp/FloatBridge.h"

void FloatBridge::Open(const PcmFormat& format) noexcept {
    isFloat = format.isFloat;
    bits = format.bits;
    depth.Open(true, 32, bits);
}

const float* FloatBridge::ToFloat(const void* samples, std::size_t count) {
    if (isFloat)
        return static_cast<const float*>(samples);
    if (floats.size() < count)
        floats.resize(count);
    IntToFloat(static_cast<const std::int32_t*>(samples), floats.data(), count, bits);
    return floats.data();
}

const void* FloatBridge::FromFloat(const float* samples, std::size_t count) {
    return isFloat ? samples : static_cast<const void*>(depth.Convert(samples, count));
}

std::uint64_t MsToFrames(std::uint64_t milliseconds, std::uint32_t frequency) noexcept {
    return (milliseconds * frequency + 500) / 1000;
}
