// Another rate and another depth: the audio of "Resample".
//
// All arithmetic is in doubles. A source that has the rate and the depth already is left alone.
#pragma once

#include "plugins/common/PcmFormat.h"
#include "plugins/common/RateChanger.h"
#include "plugins/dsp/Quantizer.h"
#include "plugins/dsp/ResampleOptions.h"

class RateAndDepth {
public:
    // 1; 0 if the audio stays as it is; -1: `error` says why.
    [[nodiscard]] std::int32_t Begin(const wchar_t* settings, AudioFormatRecord& format);
    [[nodiscard]] bool Pass(DspAudioBlock& block);
    [[nodiscard]] bool End(DspAudioBlock& block);
    [[nodiscard]] std::uint64_t Clipped() const noexcept { return quantizer.Clipped(); }

    XString error;

private:
    [[nodiscard]] const double* ToDouble(const void* samples, std::size_t count);
    void Deliver(const double* samples, std::size_t frames, DspAudioBlock& block);

    PcmFormat source;
    ResampleTarget target;
    bool changesRate = false, isEnded = false;
    RateChanger rate;
    Quantizer quantizer;
    std::vector<double> doubles;
    std::vector<float> floats;
};
