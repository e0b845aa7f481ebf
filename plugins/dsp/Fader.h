// Fades in and out, to the frame and without a change of length. Portable.
//
// As long as the fade-out lasts, the end is held back: announced lengths may be guesses. Audio between
// the fades passes bit by bit.
#pragma once

#include "plugins/dsp/FloatBridge.h"

// Settings: -in="MS" -out="MS" -curve="cosine|linear|logarithmic"
inline constexpr int fadeMs = 1000, fadeLongestMs = 60000; // each, without the option; 0 is none
enum FadeCurve : int { fadeCosine, fadeLinear, fadeLogarithmic };
inline constexpr const wchar_t* fadeCurveWords[] = {L"cosine", L"linear", L"logarithmic"};

// From 0 at 0 to 1 at 1. Logarithmic is even in dB from -60 dB on.
[[nodiscard]] double FadeGain(FadeCurve curve, double place) noexcept;

class Fader {
public:
    // 1; 0 without any fade; -1: `error` says why.
    [[nodiscard]] std::int32_t Begin(const wchar_t* settings, const AudioFormatRecord& format);
    [[nodiscard]] bool Pass(DspAudioBlock& block);
    // A source shorter than the fade-out is faded over its whole length.
    [[nodiscard]] bool End(DspAudioBlock& block);

    XString error;

private:
    template <class Gain>
    void Apply(std::size_t firstFrame, std::size_t frames, Gain gain); // to `out`
    void FadeInOut(std::size_t frames, bool isTail);

    PcmFormat source;
    FadeCurve curve = fadeCosine;
    std::uint64_t inFrames = 0, outFrames = 0;
    std::uint64_t delivered = 0; // frames
    FloatBridge bridge;
    std::vector<std::uint32_t> held, out; // samples of either kind
    std::size_t heldStart = 0;            // in `held`: what stands before it has gone
    std::vector<float> scaled;
};
