// Reading of the settings, and what the qualities of a variable rate come to.
#include "plugins/encoder/Mp3Options.h"

namespace {
// LAME's VBR qualities with stereo music, kbit/s.
constexpr int usualRates[] = {245, 225, 190, 175, 165, 130, 115, 100, 85, 65};
} // namespace

bool ReadMp3Choice(const wchar_t* text, Mp3Choice& choice, XString& error) {
    Settings settings;
    if (!settings.Parse(text, Mp3Option::all, error))
        return false;
    if (settings.Has(L"vbr") + settings.Has(L"cbr") + settings.Has(L"abr") > 1) {
        error = L"Only one of the options -vbr, -cbr and -abr can be given";
        return false;
    }
    choice.cbr = static_cast<int>(settings.Number(L"cbr", 0));
    choice.abr = static_cast<int>(settings.Number(L"abr", 0));
    choice.vbr =
        choice.cbr || choice.abr ? -1 : static_cast<int>(settings.Number(L"vbr", Mp3Option::usualQuality));
    const XString mode = settings.Word(L"mode", L"joint");
    choice.mode = mode.EqualsNoCase(L"mono")     ? Mp3Mode::mono
                  : mode.EqualsNoCase(L"stereo") ? Mp3Mode::stereo
                                                 : Mp3Mode::joint;
    return true;
}

int UsualBitRate(const Mp3Choice& choice, bool sourceIsMono) noexcept {
    if (choice.cbr || choice.abr)
        return choice.cbr ? choice.cbr : choice.abr;
    const int rate = usualRates[choice.vbr];
    return choice.mode == Mp3Mode::mono || sourceIsMono ? rate * 3 / 5 : rate;
}
