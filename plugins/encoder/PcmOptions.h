// The options of the libraries that write PCM, as the encoders check and their panel offers them.
#pragma once

#include "plugins/common/Settings.h"

namespace PcmOption {

inline constexpr int lowestRate = 1000;
inline constexpr int highestRate = 768000;
inline constexpr int mostChannels = 8;
inline constexpr const wchar_t* source = L"source"; // the default of each
inline constexpr SettingsOption all[] = {
    {L"format", L"source|8|16|24|32|float"},
    {L"rate", L"source", lowestRate, highestRate},
    {L"channels", L"source", 1, mostChannels},
};

} // namespace PcmOption
