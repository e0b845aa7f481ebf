// The options of "FLAC", as its encoder checks and its panel offers them.
#pragma once

#include "plugins/common/Settings.h"

namespace FlacOption {

inline constexpr int highestLevel = 8;
inline constexpr int usualLevel = 5; // the default
inline constexpr SettingsOption all[] = {
    {L"level", L"", 0, highestLevel},
    {L"verify", L"", 0, 0, true},
};

} // namespace FlacOption
