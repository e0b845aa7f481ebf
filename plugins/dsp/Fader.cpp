#include "plugins/dsp/Fader.h"

#include "plugins/common/Settings.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>

namespace {

constexpr SettingsOption options[] = {
    {L"in", L"", 0, fadeLongestMs},
    {L"out", L"", 0, fadeLongestMs},
    {L"curve", L"cosine|linear|logarithmic"},
};
constexpr double logarithmicRange = 60; // dB

} // namespace

double FadeGain(FadeCurve curve, double place) noexcept {
    if (place <= 0)
        return 0;
    if (place >= 1)
        return 1;
    switch (curve) {
    case fadeLinear:
        return place;
    case fadeLogarithmic:
        return std::pow(10.0, (place - 1) * logarithmicRange / 20);
    default:
        return (1 - std::cos(std::numbers::pi * place)) / 2;
    }
}

std::int32_t Fader::Begin(const wchar_t* text, const AudioFormatRecord& format) {
    Settings settings;
    if (!settings.Parse(text, options, error) || !ReadFormat(&format, source, error))
        return -1;
    const XString word = settings.Word(L"curve", fadeCurveWords[fadeCosine]);
    for (int i = fadeCosine; i <= fadeLogarithmic; ++i)
        if (word.EqualsNoCase(fadeCurveWords[i]))
            curve = static_cast<FadeCurve>(i);
    inFrames = MsToFrames(static_cast<std::uint64_t>(settings.Number(L"in", fadeMs)), source.frequency);
    outFrames = MsToFrames(static_cast<std::uint64_t>(settings.Number(L"out", fadeMs)), source.frequency);
    bridge.Open(source);
    return inFrames == 0 && outFrames == 0 ? 0 : 1;
}

template <class Gain>
void Fader::Apply(std::size_t firstFrame, std::size_t frames, Gain gain) {
    const std::size_t channels = static_cast<std::size_t>(source.channels);
    std::uint32_t* const samples = out.data() + firstFrame * channels;
    const float* in = bridge.ToFloat(samples, frames * channels);
    scaled.resize(frames * channels);
    for (std::size_t frame = 0; frame < frames; ++frame) {
        const double factor = gain(frame);
        for (std::size_t i = frame * channels; i < (frame + 1) * channels; ++i)
            scaled[i] = static_cast<float>(static_cast<double>(in[i]) * factor);
    }
    std::memcpy(samples, bridge.FromFloat(scaled.data(), frames * channels), frames * channels * 4);
}

// The first frames of `out`, which are `delivered` and what follows; a tail ends with the last of them.
void Fader::FadeInOut(std::size_t frames, bool isTail) {
    if (frames == 0)
        return;
    const std::uint64_t first = delivered;
    const auto in = [&](std::size_t frame) {
        const std::uint64_t place = first + frame;
        return place >= inFrames
                   ? 1
                   : FadeGain(curve, static_cast<double>(place) / static_cast<double>(inFrames));
    };
    if (isTail)
        Apply(0, frames, [&](std::size_t frame) {
            return in(frame)*FadeGain(curve,
                                      static_cast<double>(frames - 1 - frame) / static_cast<double>(frames));
        });
    else if (first < inFrames)
        Apply(0, std::min(frames, static_cast<std::size_t>(inFrames - first)), in);
    delivered += frames;
}

bool Fader::Pass(DspAudioBlock& block) {
    const std::size_t channels = static_cast<std::size_t>(source.channels);
    const auto* from = static_cast<const std::uint32_t*>(block.input);
    const auto* end = from + block.inputFrames * channels;
    const std::size_t holdable = static_cast<std::size_t>(outFrames) * channels;
    const std::size_t heldCount = held.size() - heldStart;
    const std::size_t total = heldCount + static_cast<std::size_t>(end - from);
    const std::size_t ready = total > holdable ? total - holdable : 0;
    const std::size_t oldReady = std::min(ready, heldCount);
    const auto oldest = held.begin() + static_cast<std::ptrdiff_t>(heldStart);
    out.assign(oldest, oldest + static_cast<std::ptrdiff_t>(oldReady));
    heldStart += oldReady;
    if (heldStart > held.size() / 2) { // rarely, as the rest moves
        held.erase(held.begin(), held.begin() + static_cast<std::ptrdiff_t>(heldStart));
        heldStart = 0;
    }
    const std::uint32_t* const newReady = from + (ready - oldReady);
    out.insert(out.end(), from, newReady);
    held.insert(held.end(), newReady, end);
    FadeInOut(ready / channels, false);
    block.output = out.data();
    block.outputFrames = static_cast<std::uint32_t>(ready / channels);
    return true;
}

bool Fader::End(DspAudioBlock& block) {
    out.assign(held.begin() + static_cast<std::ptrdiff_t>(heldStart), held.end());
    held.clear();
    heldStart = 0;
    const std::size_t frames = out.size() / static_cast<std::size_t>(source.channels);
    FadeInOut(frames, true);
    block.output = out.data();
    block.outputFrames = static_cast<std::uint32_t>(frames);
    return true;
}
