// Loudness as ReplayGain 2.0 writes it into tags. Portable.
#pragma once

#include "foundation/XTagList.h"
#include "plugins/dsp/LoudnessHistogram.h"

#include <optional>

// Settings: -album="tags|folder|batch|off" -peak="sample|true"
enum AlbumMode : int {
    albumByTags,   // one album and album artist, wherever the outputs stand
    albumByFolder, // the outputs of one folder
    albumOfBatch,  // all outputs
    albumOff,
};
inline constexpr const wchar_t* albumWords[] = {L"tags", L"folder", L"batch", L"off"};
inline constexpr const wchar_t* peakWords[] = {L"sample", L"true"};

struct ReplayGainSettings {
    AlbumMode album = albumByTags;
    bool wantsTruePeak = false;
};
// False: `error` says what is wrong.
[[nodiscard]] bool ReadReplayGainSettings(const wchar_t* text, ReplayGainSettings& settings, XString& error);

inline constexpr wchar_t trackGainKey[] = L"replaygain_track_gain";
inline constexpr wchar_t trackPeakKey[] = L"replaygain_track_peak";
inline constexpr wchar_t albumGainKey[] = L"replaygain_album_gain";
inline constexpr wchar_t albumPeakKey[] = L"replaygain_album_peak";
inline constexpr wchar_t opusAlbumGainKey[] = L"r128_album_gain";

// Decibels up to -18 LUFS; nothing for silence.
[[nodiscard]] std::optional<double> GainOf(const LoudnessHistogram& histogram);
[[nodiscard]] XString GainText(double decibels);     // "-7.03 dB"
[[nodiscard]] XString OpusGainText(double decibels); // of the same gain: 256ths of a dB up to -23 LUFS
[[nodiscard]] XString PeakText(double peak);         // "0.988553"; full scale is 1

// Replaces all gains and peaks that the tags have, of track and album and under Opus's names, by those of
// the track; by nothing for silence.
void PutTrackGain(XTagList& tags, const std::optional<double>& decibels, double peak);

// What the outputs of an album have in common; empty for an output that is on none.
[[nodiscard]] XString AlbumKey(AlbumMode mode, XTagList& tags, const XString& outputPath);
