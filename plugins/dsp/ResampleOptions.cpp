#include "plugins/dsp/ResampleOptions.h"

#include "plugins/common/Settings.h"

namespace {

constexpr SettingsOption options[] = {
    {L"rate", L"source", resampleLowestRate, resampleHighestRate},
    {L"quality", L"veryhigh|high"},
    {L"bits", L"source|16|24|32|float"},
    {L"dither", L"triangular|shaped|none"},
    {L"only", L"any|down"},
};

template <int count>
int WordIndex(const Settings& settings, const wchar_t* name, const wchar_t* const (&words)[count]) {
    const XString word = settings.Word(name, words[0]);
    int index = 0;
    while (index + 1 < count && !word.EqualsNoCase(words[index]))
        ++index;
    return index;
}

} // namespace

bool ResampleTarget::Read(const wchar_t* text, const PcmFormat& source, XString& error) {
    Settings settings;
    if (!settings.Parse(text, options, error))
        return false;
    const bool onlyDown = WordIndex(settings, L"only", resampleOnlyWords) == 1;
    frequency = settings.Word(L"rate", L"").EqualsNoCase(L"source")
                    ? source.frequency
                    : static_cast<std::uint32_t>(settings.Number(L"rate", resampleRate));
    if (onlyDown && frequency > source.frequency)
        frequency = source.frequency;

    constexpr int depths[] = {0, 16, 24, 32, 32};
    const int choice = WordIndex(settings, L"bits", resampleBitsWords);
    isFloat = choice == 4;
    bits = depths[choice];
    // Float holds more than any integer.
    if (choice == 0 || (onlyDown && !source.isFloat && (isFloat || bits > source.bits))) {
        isFloat = source.isFloat;
        bits = source.bits;
    }
    quality = WordIndex(settings, L"quality", resampleQualityWords);
    dither = static_cast<DitherKind>(WordIndex(settings, L"dither", resampleDitherWords));
    return true;
}

bool ResampleTarget::IsSameAs(const PcmFormat& source) const noexcept {
    return frequency == source.frequency && isFloat == source.isFloat && bits == source.bits;
}
