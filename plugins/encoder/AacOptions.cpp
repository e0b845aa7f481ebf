#include "plugins/encoder/AacOptions.h"

#include <algorithm>

namespace {
// ISO 14496-3: the decoder's buffer for a frame of one channel.
constexpr std::int64_t mostFrameBits = 6144, frameLength = 1024;
} // namespace

bool ReadAacChoice(const wchar_t* text, AacChoice& choice, XString& error) {
    Settings settings;
    if (!settings.Parse(text, AacOption::all, error))
        return false;
    choice.rate = static_cast<int>(settings.Number(L"bitrate", AacOption::usualRate));
    choice.channels = static_cast<int>(settings.Number(L"channels", 0));
    return true;
}

std::int64_t AacBitRate(const AacChoice& choice, int channels, std::uint32_t frequency) noexcept {
    const std::int64_t ofOne = std::int64_t(choice.rate) * 500;
    return channels * std::min(ofOne, mostFrameBits * frequency / frameLength);
}
