#include "plugins/encoder/OpusGains.h"

#include "foundation/XNumberText.h"

namespace {

// ReplayGain aims at -18 LUFS, Opus at -23; Opus counts in 256ths of a decibel.
constexpr double decibelsBetween = 5;
constexpr double stepsPerDecibel = 256;
constexpr double mostDecibels = 100; // beyond it a gain is a mistake, and 16 bits end at 128

// "-3.21 dB"; false if there is no number in front or it makes no sense.
bool ReadDecibels(const XString& text, double& decibels) {
    int at = 1;
    while (text.CharAt(at) == L' ')
        ++at;
    const bool isNegative = text.CharAt(at) == L'-';
    if (isNegative || text.CharAt(at) == L'+')
        ++at;
    double value = 0, place = 0;
    bool hasDigits = false;
    for (;; ++at) {
        const wchar_t c = text.CharAt(at);
        if (c >= L'0' && c <= L'9') {
            hasDigits = true;
            value = place == 0 ? value * 10 + (c - L'0') : value + (c - L'0') * place;
            place /= 10;
        } else if (c == L'.' && place == 0)
            place = 0.1;
        else
            break;
    }
    decibels = isNegative ? -value : value;
    return hasDigits && value <= mostDecibels;
}

struct GainName {
    const wchar_t* replayGain;
    const wchar_t* opus;
};
constexpr GainName gainNames[] = {{L"replaygain_track_gain", L"r128_track_gain"},
                                  {L"replaygain_album_gain", L"r128_album_gain"}};
constexpr const wchar_t* peakNames[] = {L"replaygain_track_peak", L"replaygain_album_peak"};

void TakeOut(XTagList& tags, const wchar_t* key) {
    for (std::int64_t i = tags.Count() - 1; i >= 0; --i)
        if (tags[i].key.EqualsNoCase(key))
            tags.RemoveAt(i);
}

} // namespace

void TurnIntoOpusGains(XTagList& tags, LeftOutTags& leftOut) {
    for (const GainName& name : gainNames) {
        const XTagItem* item = tags.Find(name.replayGain);
        double decibels = 0;
        if (!item)
            continue;
        if (!ReadDecibels(item->value, decibels))
            leftOut.Add(*item);
        else if (!tags.Find(name.opus)) {
            const double steps = (decibels - decibelsBetween) * stepsPerDecibel;
            tags.Add(name.opus, DecimalText(static_cast<int>(steps < 0 ? steps - 0.5 : steps + 0.5)));
        }
        TakeOut(tags, name.replayGain);
    }
    for (const wchar_t* name : peakNames) {
        if (const XTagItem* item = tags.Find(name))
            leftOut.Add(*item);
        TakeOut(tags, name);
    }
}
