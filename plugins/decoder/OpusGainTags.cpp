#include "plugins/decoder/OpusGainTags.h"

#include <cstdlib>

namespace {

// ReplayGain aims at -18 LUFS, Opus at -23; Opus counts in 256ths of a decibel, in 16 bits.
constexpr std::int64_t stepsBetween = 5 * 256;
constexpr std::int64_t mostSteps = 32768;

struct GainName {
    const wchar_t *opus, *replayGain;
};
constexpr GainName gainNames[] = {{L"r128_track_gain", L"replaygain_track_gain"},
                                  {L"r128_album_gain", L"replaygain_album_gain"}};

void TakeOut(XTagList& tags, const wchar_t* key) {
    for (std::int64_t i = tags.Count() - 1; i >= 0; --i)
        if (tags[i].key.EqualsNoCase(key))
            tags.RemoveAt(i);
}

bool IsNumber(const XString& text) {
    const int first = text.CharAt(1) == L'-' || text.CharAt(1) == L'+' ? 2 : 1;
    for (int i = first; i <= text.Count(); ++i)
        if (text.CharAt(i) < L'0' || text.CharAt(i) > L'9')
            return false;
    return text.Count() >= first;
}

XString DecibelText(std::int64_t steps) {
    const std::int64_t hundredths = (std::abs(steps) * 100 + 128) / 256;
    const XString fraction = DecimalText(hundredths % 100);
    return (steps < 0 && hundredths > 0 ? L"-" : L"") + DecimalText(hundredths / 100) +
           (hundredths % 100 < 10 ? L".0" : L".") + fraction + L" dB";
}

} // namespace

void TurnFromOpusGains(XTagList& tags) {
    for (const GainName& name : gainNames) {
        const XTagItem* item = tags.Find(name.opus);
        if (!item)
            continue;
        const bool isNumber = IsNumber(item->value);
        const std::int64_t steps = item->value.ToInt();
        TakeOut(tags, name.opus);
        if (!isNumber || steps < -mostSteps || steps >= mostSteps)
            continue;
        TakeOut(tags, name.replayGain);
        tags.Add(name.replayGain, DecibelText(steps + stepsBetween));
    }
}
