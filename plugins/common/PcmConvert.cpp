// Sample arithmetic. The loops are plain so that the compiler can vectorise them.
#include "plugins/common/PcmConvert.h"

#include <algorithm>
#include <cstring>

namespace {

// What a float's mantissa holds: from here on rounding loses nothing that dither could mend.
constexpr int floatBits = 24;

template <int bytes, bool big>
void Pack(const void* in, unsigned char* out, std::size_t count, std::uint32_t offset) noexcept {
    const unsigned char* from = static_cast<const unsigned char*>(in);
    for (std::size_t i = 0; i < count; ++i) {
        std::uint32_t value = 0;
        std::memcpy(&value, from + i * sizeof value, sizeof value); // of integers or floats
        value += offset;
        for (int b = 0; b < bytes; ++b)
            *out++ = static_cast<unsigned char>(value >> (8 * (big ? bytes - 1 - b : b)));
    }
}

template <bool big>
void PackOrder(const void* in, unsigned char* out, std::size_t count, int bytes) noexcept {
    switch (bytes) {
    case 1:
        Pack<1, big>(in, out, count, 0);
        break;
    case 2:
        Pack<2, big>(in, out, count, 0);
        break;
    case 3:
        Pack<3, big>(in, out, count, 0);
        break;
    default:
        Pack<4, big>(in, out, count, 0);
        break;
    }
}

} // namespace

void IntToFloat(const std::int32_t* in, float* out, std::size_t count, int bits) noexcept {
    const float scale = 1.0f / static_cast<float>(std::uint64_t(1) << (bits - 1));
    for (std::size_t i = 0; i < count; ++i)
        out[i] = static_cast<float>(in[i]) * scale;
}

void AlignLeft(const std::int32_t* in, std::int32_t* out, std::size_t count, int bits) noexcept {
    const int shift = 32 - bits;
    for (std::size_t i = 0; i < count; ++i)
        out[i] = static_cast<std::int32_t>(static_cast<std::uint32_t>(in[i]) << shift);
}

void PackSamples(const void* in, unsigned char* out, std::size_t count, int bytes,
                 SampleOrder order) noexcept {
    if (order == SampleOrder::big)
        PackOrder<true>(in, out, count, bytes);
    else if (order == SampleOrder::wave && bytes == 1)
        Pack<1, false>(in, out, count, 128);
    else
        PackOrder<false>(in, out, count, bytes);
}

void DepthChanger::Open(bool fromFloat, int fromBits, int toBits) noexcept {
    isFloat = fromFloat;
    sourceBits = fromFloat ? floatBits : fromBits;
    targetBits = toBits;
    dithers = hasRounded = false;
    clipped = 0;
}

const std::int32_t* DepthChanger::Convert(const void* samples, std::size_t count) {
    if (!IsNeeded())
        return static_cast<const std::int32_t*>(samples);
    if (result.size() < count)
        result.resize(count);
    if (isFloat)
        FromFloat(static_cast<const float*>(samples), count);
    else if (targetBits > sourceBits)
        Widen(static_cast<const std::int32_t*>(samples), count);
    else
        Narrow(static_cast<const std::int32_t*>(samples), count);
    return result.data();
}

// Xorshift (Marsaglia 2003): white enough for noise, and cheap.
std::uint32_t DepthChanger::NextRandom() noexcept {
    random ^= random << 13;
    random ^= random >> 17;
    random ^= random << 5;
    return random;
}

void DepthChanger::FromFloat(const float* in, std::size_t count) noexcept {
    const double scale = static_cast<double>(std::uint64_t(1) << (targetBits - 1));
    const double top = scale - 1;
    for (std::size_t i = 0; i < count; ++i) {
        double value = static_cast<double>(in[i]) * scale;
        if (!(value == value)) // not a number
            value = 0;
        clipped += value > scale || value < -scale;
        value = std::clamp(value, -scale, top);
        hasRounded = hasRounded || value != static_cast<double>(static_cast<std::int64_t>(value));
        dithers = hasRounded && targetBits < floatBits;
        if (dithers) {
            const std::uint32_t noise = NextRandom();
            value += (static_cast<double>(noise & 0xFFFF) - static_cast<double>(noise >> 16)) / 65536.0;
        }
        value = std::clamp(value + (value < 0 ? -0.5 : 0.5), -scale, top); // rounds: what follows cuts
        result[i] = static_cast<std::int32_t>(value);
    }
}

void DepthChanger::Widen(const std::int32_t* in, std::size_t count) noexcept {
    const int shift = targetBits - sourceBits;
    for (std::size_t i = 0; i < count; ++i)
        result[i] = static_cast<std::int32_t>(static_cast<std::uint32_t>(in[i]) << shift);
}

void DepthChanger::Narrow(const std::int32_t* in, std::size_t count) noexcept {
    const int shift = sourceBits - targetBits;
    const std::uint32_t lost = static_cast<std::uint32_t>((std::uint64_t(1) << shift) - 1);
    const std::int64_t half = (std::int64_t(1) << shift) >> 1;
    const std::int64_t bottom = -(std::int64_t(1) << (targetBits - 1));
    for (std::size_t i = 0; i < count; ++i) {
        std::int64_t value = in[i];
        dithers = hasRounded = hasRounded || (static_cast<std::uint32_t>(in[i]) & lost) != 0;
        if (dithers) {
            const std::int64_t first = NextRandom() & lost;
            value += first - static_cast<std::int64_t>(NextRandom() & lost);
        }
        value = (value + half) >> shift;
        result[i] = static_cast<std::int32_t>(std::clamp(value, bottom, -bottom - 1));
    }
}
