// The options of "Ogg Vorbis", as its encoder checks and its panel offers them.
#pragma once

#include "plugins/common/Settings.h"

namespace VorbisOption {

inline constexpr int lowestQuality = -1, highestQuality = 10;
inline constexpr int usualQuality = 5;                 // the default
inline constexpr int lowestAbr = 16, highestAbr = 500; // kbit/s for stereo; others in proportion
inline constexpr SettingsOption all[] = {
    {L"quality", L"", lowestQuality, highestQuality},
    {L"abr", L"", lowestAbr, highestAbr},
};

} // namespace VorbisOption

struct VorbisChoice {
    int quality = VorbisOption::usualQuality;
    int abr = 0; // kbit/s for stereo, 0: the quality counts
};

// False with a text for the user if the settings are not good.
[[nodiscard]] bool ReadVorbisChoice(const wchar_t* text, VorbisChoice& choice, XString& error);
// What a choice comes to with music, kbit/s.
[[nodiscard]] int UsualBitRate(const VorbisChoice& choice, int channels) noexcept;
