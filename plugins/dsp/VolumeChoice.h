// What the effect "Volume" is told, and the gain that follows from what was measured. Portable.
#pragma once

#include "foundation/XString.h"

#include <optional>

// Settings: -loudness="LUFS", -peak="dBFS" or -gain="dB"; -limit="dBTP|off" -over="reduce|limit"
enum VolumeMode : int { volumeLoudness, volumePeak, volumeGain };
struct VolumeTarget {
    const wchar_t* option;
    int minimum, maximum; // fractions are allowed
    double usual;         // without any option: the loudness
};
inline constexpr VolumeTarget volumeTargets[] = { // by VolumeMode
    {L"loudness", -60, 0, -23},
    {L"peak", -60, 0, -1},
    {L"gain", -60, 60, 0}};
inline constexpr int volumeLowestLimit = -30, volumeHighestLimit = 0; // dBTP
inline constexpr double volumeUsualLimit = -1; // of loudness; the other modes have none
inline constexpr const wchar_t* volumeLimitOff = L"off";
inline constexpr const wchar_t* volumeOverWords[] = {L"reduce", L"limit"};

struct VolumeMeasure {
    std::optional<double> loudness; // LUFS
    double samplePeak = 0;          // linear
    double truePeak = 0;
};

struct VolumePlan {
    double gainDb = 0;
    bool isLimited = false; // its true peaks would pass the limit
};

struct VolumeChoice {
    // False: `error` says why.
    [[nodiscard]] bool Parse(const wchar_t* settings, XString& error);
    [[nodiscard]] bool DoesNothing() const noexcept { return mode == volumeGain && value == 0 && !limit; }
    // A fixed gain goes without, if it need not be reduced; a gain of 0 only to pass what is low enough.
    [[nodiscard]] bool NeedsMeasure() const noexcept {
        return mode != volumeGain || (limit && (reduces || value == 0));
    }
    [[nodiscard]] bool NeedsTruePeak() const noexcept { return limit.has_value(); }
    // Silence, and what is too short for a loudness, gets no gain. Without a measure, where none is
    // needed, a limit means that the limiter works.
    [[nodiscard]] VolumePlan Plan(const VolumeMeasure* measure) const;

    VolumeMode mode = volumeLoudness;
    double value = volumeTargets[volumeLoudness].usual;
    std::optional<double> limit = volumeUsualLimit; // dBTP
    bool reduces = true;                            // the whole gain, and does not limit the moment's
};

[[nodiscard]] double DbToFactor(double db);
[[nodiscard]] double FactorToDb(double factor);
