// The options of "WavPack", as its encoder checks and its panel offers them.
#pragma once

#include "plugins/common/Settings.h"

namespace WavPackOption {

inline constexpr const wchar_t* modeWords[] = {L"fast", L"normal", L"high", L"veryhigh"};
enum Mode { fast, normal, high, veryHigh }; // as modeWords
inline constexpr int usualMode = normal;    // the default
inline constexpr int mostExtra = 6;         // 0 is the default
inline constexpr SettingsOption all[] = {
    {L"mode", L"fast|normal|high|veryhigh"},
    {L"extra", L"", 0, mostExtra},
    {L"verify", L"", 0, 0, true},
};

} // namespace WavPackOption
