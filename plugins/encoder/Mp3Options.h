// The options of "mp3 (Lame)", as its encoder checks and its panel offers them.
#pragma once

#include "plugins/common/Settings.h"

namespace Mp3Option {

inline constexpr int usualQuality = 2; // the default, VBR
inline constexpr int lowestQuality = 9;
inline constexpr int lowestAbr = 8, highestAbr = 310;  // kbit/s
inline constexpr int lowestCbr = 32, highestCbr = 320; // kbit/s
inline constexpr const wchar_t* modeWords[] = {L"joint", L"stereo", L"mono"};
inline constexpr SettingsOption all[] = {
    {L"vbr", L"", 0, lowestQuality},
    {L"cbr", L"", lowestCbr, highestCbr},
    {L"abr", L"", lowestAbr, highestAbr},
    {L"mode", L"joint|stereo|mono"},
};

} // namespace Mp3Option

enum class Mp3Mode { joint, stereo, mono }; // as modeWords

// One of the three kinds of bit rate.
struct Mp3Choice {
    int vbr = Mp3Option::usualQuality; // -1: not VBR
    int cbr = 0;                       // kbit/s, 0: not CBR
    int abr = 0;                       // kbit/s, 0: not ABR
    Mp3Mode mode = Mp3Mode::joint;
};

// False with a text for the user if the settings are not good.
[[nodiscard]] bool ReadMp3Choice(const wchar_t* text, Mp3Choice& choice, XString& error);
// What a choice comes to with music, kbit/s.
[[nodiscard]] int UsualBitRate(const Mp3Choice& choice, bool sourceIsMono) noexcept;
