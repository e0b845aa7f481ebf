#include "plugins/encoder/PcmLayout.h"

#include "plugins/encoder/PcmOptions.h"

PcmLayout PcmLayoutOf(const PcmFormat& source, const wchar_t* text) {
    Settings settings;
    XString error;
    (void)settings.Parse(text, PcmOption::all, error);
    PcmLayout layout;
    const XString kind = settings.Word(L"format", L"source");
    layout.isFloat =
        kind.EqualsNoCase(L"float") || (kind.EqualsNoCase(L"source") && source.isFloat && !source.isLossy);
    // Odd depths move up to whole bytes: few readers accept padded samples.
    const std::int64_t bits =
        layout.isFloat ? 32 : settings.Number(L"format", source.isLossy ? 16 : source.bits);
    layout.sampleBytes = static_cast<int>((bits + 7) / 8);
    layout.channels = static_cast<int>(settings.Number(L"channels", source.channels));
    layout.frequency = static_cast<std::uint32_t>(settings.Number(L"rate", source.frequency));
    if (layout.channels == source.channels)
        layout.channelMask = source.channelMask;
    if (layout.channelMask == 0)
        layout.channelMask = UsualChannelMask(layout.channels);
    return layout;
}
