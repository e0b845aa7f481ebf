#include "plugins/dsp/VolumeChoice.h"

#include "plugins/common/Settings.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr SettingsOption options[] = {
    {L"loudness", L"", volumeTargets[volumeLoudness].minimum, volumeTargets[volumeLoudness].maximum, false,
     true},
    {L"peak", L"", volumeTargets[volumePeak].minimum, volumeTargets[volumePeak].maximum, false, true},
    {L"gain", L"", volumeTargets[volumeGain].minimum, volumeTargets[volumeGain].maximum, false, true},
    {L"limit", volumeLimitOff, volumeLowestLimit, volumeHighestLimit, false, true},
    {L"over", L"reduce|limit"},
};

} // namespace

double DbToFactor(double db) {
    return std::pow(10.0, db / 20);
}

double FactorToDb(double factor) {
    return 20 * std::log10(factor);
}

bool VolumeChoice::Parse(const wchar_t* text, XString& error) {
    Settings settings;
    if (!settings.Parse(text, options, error))
        return false;
    int found = 0;
    for (const VolumeMode one : {volumeLoudness, volumePeak, volumeGain})
        if (settings.Has(volumeTargets[one].option)) {
            mode = one;
            ++found;
        }
    if (found > 1) {
        error = L"Of the options -loudness, -peak and -gain only one can be given";
        return false;
    }
    value = settings.Real(volumeTargets[mode].option, volumeTargets[mode].usual);
    if (settings.Word(L"limit", L"").EqualsNoCase(volumeLimitOff) ||
        (mode != volumeLoudness && !settings.Has(L"limit")))
        limit.reset();
    else
        limit = settings.Real(L"limit", volumeUsualLimit);
    reduces = !settings.Word(L"over", volumeOverWords[0]).EqualsNoCase(volumeOverWords[1]);
    return true;
}

VolumePlan VolumeChoice::Plan(const VolumeMeasure* measure) const {
    VolumePlan plan;
    if (mode == volumeGain)
        plan.gainDb = value;
    if (!measure) {
        plan.isLimited = limit.has_value();
        return plan;
    }
    if (measure->samplePeak <= 0 || (mode == volumeLoudness && !measure->loudness))
        return VolumePlan();
    if (mode == volumeLoudness)
        plan.gainDb = value - *measure->loudness;
    if (mode == volumePeak)
        plan.gainDb = value - FactorToDb(measure->samplePeak);
    const double room = limit ? *limit - FactorToDb(measure->truePeak) : plan.gainDb;
    plan.isLimited = !reduces && plan.gainDb > room;
    if (reduces)
        plan.gainDb = std::min(plan.gainDb, room);
    return plan;
}
