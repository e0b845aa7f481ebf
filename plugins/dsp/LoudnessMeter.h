// Measures loudness (EBU R128) and peaks of audio in the contract's format. Needs libebur128.
#pragma once

#include "plugins/common/PcmFormat.h"
#include "plugins/dsp/FloatBridge.h"
#include "plugins/dsp/LoudnessHistogram.h"

#include <ebur128.h>
#include <memory>

class LoudnessMeter {
public:
    // Begins anew. Channels count by their places (the usual ones where they are unknown): surrounds
    // 1.5 dB more, the low-frequency channel not at all. Peaks cost most of the time of measuring.
    // False for formats that can't be measured: more than 64 channels, strange frequencies.
    [[nodiscard]] bool Open(const PcmFormat& format, bool wantsTruePeak = true);
    // Interleaved samples of that format; what is no number counts as silence. False: out of memory.
    [[nodiscard]] bool Add(const void* samples, std::size_t frames);

    [[nodiscard]] const LoudnessHistogram& Histogram() const noexcept { return histogram; }
    // In LUFS; nothing for silence and for less than 400 ms.
    [[nodiscard]] std::optional<double> IntegratedLoudness() const { return histogram.Integrated(); }
    // The highest of all channels, linear, full scale being 1; 0 before Open. The true peak is that of
    // the analogue signal (oversampled four times below 96 kHz, twice below 192 kHz), never below the
    // sample peak; without wantsTruePeak it is the sample peak.
    [[nodiscard]] double SamplePeak() const noexcept { return samplePeak; }
    [[nodiscard]] double TruePeak() const;

private:
    struct Closer {
        void operator()(ebur128_state* state) const noexcept;
    };

    std::unique_ptr<ebur128_state, Closer> state; // null: not open
    bool hasTruePeak = false;
    std::size_t channels = 0;
    std::size_t hop = 0;   // frames of 100 ms
    std::size_t inHop = 0; // frames since the last block's end
    int hops = 0;          // up to the four of the first block
    float samplePeak = 0;
    FloatBridge bridge;
    std::vector<float> cleaned;
    LoudnessHistogram histogram;
};
