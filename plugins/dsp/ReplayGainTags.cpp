#include "plugins/dsp/ReplayGainTags.h"

#include "foundation/XPath.h"
#include "plugins/common/Settings.h"

#include <cmath>
#include <cstdlib>

namespace {

constexpr double referenceLufs = -18;
constexpr double opusDistance = 5; // Opus aims at -23 LUFS
constexpr double opusSteps = 256;  // per decibel

constexpr SettingsOption options[] = {{L"album", L"tags|folder|batch|off"}, {L"peak", L"sample|true"}};

bool IsGain(const XString& key) {
    const XString lower = key.Lower();
    return lower.StartsWith(L"replaygain_") || lower == opusAlbumGainKey || lower == L"r128_track_gain";
}

} // namespace

bool ReadReplayGainSettings(const wchar_t* text, ReplayGainSettings& settings, XString& error) {
    Settings given;
    if (!given.Parse(text, options, error))
        return false;
    const XString album = given.Word(L"album", albumWords[albumByTags]);
    for (int mode = albumByTags; mode <= albumOff; ++mode)
        if (album.EqualsNoCase(albumWords[mode]))
            settings.album = static_cast<AlbumMode>(mode);
    settings.wantsTruePeak = given.Word(L"peak", peakWords[0]).EqualsNoCase(peakWords[1]);
    return true;
}

std::optional<double> GainOf(const LoudnessHistogram& histogram) {
    const std::optional<double> lufs = histogram.Integrated();
    return lufs ? std::optional(referenceLufs - *lufs) : std::nullopt;
}

XString GainText(double decibels) {
    const std::int64_t hundredths = std::llround(decibels * 100);
    const std::int64_t size = std::abs(hundredths);
    const XString fraction = DecimalText(size % 100);
    return (hundredths < 0 ? L"-" : L"") + DecimalText(size / 100) + (size % 100 < 10 ? L".0" : L".") +
           fraction + L" dB";
}

XString OpusGainText(double decibels) {
    return DecimalText(std::llround((decibels - opusDistance) * opusSteps));
}

XString PeakText(double peak) {
    XString text;
    text.FromReal(peak, 6, true);
    return text;
}

void PutTrackGain(XTagList& tags, const std::optional<double>& decibels, double peak) {
    for (std::int64_t i = tags.Count() - 1; i >= 0; --i)
        if (IsGain(tags[i].key))
            tags.RemoveAt(i);
    if (!decibels)
        return;
    tags.Add(trackGainKey, GainText(*decibels));
    tags.Add(trackPeakKey, PeakText(peak));
}

XString AlbumKey(AlbumMode mode, XTagList& tags, const XString& outputPath) {
    const XString folder = FolderOf(outputPath).Lower();
    switch (mode) {
    case albumByFolder:
        return folder;
    case albumOfBatch:
        return L"*";
    case albumByTags: {
        const XString album = tags.Get(L"album");
        const XString artist = tags.Get(L"album artist");
        // Without an artist of its own an album is no other of that name if it stands elsewhere.
        return album.IsEmpty() ? XString()
                               : album.Lower() + L"\n" + (artist.IsEmpty() ? folder : artist.Lower());
    }
    case albumOff:
        break;
    }
    return XString();
}
