// The audio of the effect "Volume": measures, then scales, and limits true peaks if it is to.
#pragma once

#include "plugins/dsp/LoudnessMeter.h"
#include "plugins/dsp/TruePeakLimiter.h"
#include "plugins/dsp/VolumeChoice.h"

class VolumeChanger {
public:
    // 1; 0 if nothing is to be changed; -1: `error` says why.
    [[nodiscard]] std::int32_t Begin(const wchar_t* settings, const AudioFormatRecord& format);
    [[nodiscard]] bool WantsFirstPass() const noexcept { return choice.NeedsMeasure(); }
    [[nodiscard]] bool FirstPass(const DspAudioBlock& block);
    // Audio that needs no change passes bit by bit.
    [[nodiscard]] bool Pass(DspAudioBlock& block);
    [[nodiscard]] bool End(DspAudioBlock& block);
    [[nodiscard]] std::uint64_t Clipped() const noexcept { return bridge.Clipped(); }

    XString error;

private:
    void Follow(const VolumePlan& plan);
    void Deliver(DspAudioBlock& block, const std::vector<float>& samples);

    VolumeChoice choice;
    PcmFormat source;
    LoudnessMeter meter;
    double factor = 1;
    bool isLimited = false;
    TruePeakLimiter limiter;
    FloatBridge bridge;
    std::vector<float> scaled, limited;
};
