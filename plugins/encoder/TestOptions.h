// The options of "Test Conversion", as its encoder checks and its panel offers them.
#pragma once

#include "plugins/common/Settings.h"

namespace TestOption {

inline constexpr const wchar_t* both = L"both"; // the default
inline constexpr SettingsOption all[] = {
    {L"checksum", L"both|crc32|md5|none"},
};

} // namespace TestOption
