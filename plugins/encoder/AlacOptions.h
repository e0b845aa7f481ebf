// The options of "ALAC", as its encoder checks and its panel offers them.
#pragma once

#include "plugins/common/Settings.h"

namespace AlacOption {

inline constexpr const wchar_t* formatWords[] = {L"source", L"16", L"24"}; // the first is the default
inline constexpr SettingsOption all[] = {{L"format", L"source|16|24"}};

} // namespace AlacOption
