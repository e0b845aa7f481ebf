// Reading of the settings, and what the qualities come to.
#include "plugins/encoder/VorbisOptions.h"

#include <iterator>

namespace {
// The nominal rates of stereo music at 44.1 kHz, kbit/s.
constexpr int nominalRates[] = {48, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 500};
static_assert(std::size(nominalRates) == VorbisOption::highestQuality - VorbisOption::lowestQuality + 1);
} // namespace

bool ReadVorbisChoice(const wchar_t* text, VorbisChoice& choice, XString& error) {
    Settings settings;
    if (!settings.Parse(text, VorbisOption::all, error))
        return false;
    if (settings.Has(L"quality") && settings.Has(L"abr")) {
        error = L"Only one of the options -quality and -abr can be given";
        return false;
    }
    choice.quality = static_cast<int>(settings.Number(L"quality", VorbisOption::usualQuality));
    choice.abr = static_cast<int>(settings.Number(L"abr", 0));
    return true;
}

int UsualBitRate(const VorbisChoice& choice, int channels) noexcept {
    const int stereo = choice.abr ? choice.abr : nominalRates[choice.quality - VorbisOption::lowestQuality];
    return stereo * channels / 2;
}
