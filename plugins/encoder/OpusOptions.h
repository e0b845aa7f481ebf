// The options of "Opus", as its encoder checks and its panel offers them.
#pragma once

#include "plugins/common/Settings.h"

namespace OpusOption {

// kbit/s for stereo; other numbers of channels get it in proportion.
inline constexpr int lowestRate = 6, highestRate = 510;
inline constexpr int usualRate = 128; // the default
inline constexpr int mostEffort = 10; // the default, too
inline constexpr int lowestWhole = 6; // kbit/s that a file has at least
inline constexpr const wchar_t* modeWords[] = {L"vbr", L"cvbr", L"cbr"};
enum Mode { vbr, constrained, constant }; // as modeWords
inline constexpr SettingsOption all[] = {
    {L"bitrate", L"", lowestRate, highestRate},
    {L"mode", L"vbr|cvbr|cbr"},
    {L"complexity", L"", 0, mostEffort},
};

// kbit/s of a whole file.
[[nodiscard]] constexpr int WholeRate(int stereoRate, int channels) noexcept {
    const int rate = stereoRate * channels / 2;
    return rate < lowestWhole ? lowestWhole : rate;
}
static_assert(WholeRate(usualRate, 2) == usualRate && WholeRate(lowestRate, 1) == lowestWhole);

} // namespace OpusOption
