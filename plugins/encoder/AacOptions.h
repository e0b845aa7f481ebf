// The options of "m4a AAC", as its encoder checks and its panel offers them.
#pragma once

#include "plugins/common/Settings.h"

namespace AacOption {

inline constexpr int lowestRate = 16, highestRate = 512; // kbit/s for two channels
inline constexpr int usualRate = 160;                    // the default
inline constexpr SettingsOption all[] = {
    {L"bitrate", L"", lowestRate, highestRate},
    {L"channels", L"source", 1, 2},
};

} // namespace AacOption

struct AacChoice {
    int rate = AacOption::usualRate; // kbit/s for two channels
    int channels = 0;                // 0: as the source has
};

// False with a text for the user if the settings are not good.
[[nodiscard]] bool ReadAacChoice(const wchar_t* text, AacChoice& choice, XString& error);
// Bits per second of a file: each channel gets half of what two have, up to what AAC has room for.
[[nodiscard]] std::int64_t AacBitRate(const AacChoice& choice, int channels,
                                      std::uint32_t frequency) noexcept;
