// Channels are mixed by libswresample, at the source's rate; then soxr changes the rate.
#include "plugins/common/Resampler.h"

#include "plugins/common/PcmConvert.h"
#include "plugins/common/RateChanger.h"

extern "C" {
#include <libavutil/channel_layout.h>
#include <libavutil/opt.h>
#include <libswresample/swresample.h>
}

#include <algorithm>

struct Resampler::Engine {
    ~Engine() { swr_free(&mixer); }
    [[nodiscard]] bool OpenMixer(int channels);

    SwrContext* mixer = nullptr; // none if the channels stay
    PcmFormat source;
    std::size_t channels = 0;
    bool changesRate = false;
    RateChanger rate;
    std::vector<double> wide;
};

namespace {

void FillLayout(AVChannelLayout& layout, int channels, std::uint32_t mask) {
    if (mask == 0)
        mask = UsualChannelMask(channels);
    if (mask == 0 || av_channel_layout_from_mask(&layout, mask) < 0)
        av_channel_layout_default(&layout, channels);
}

} // namespace

Resampler::Resampler() = default;
Resampler::~Resampler() = default;

bool Resampler::Engine::OpenMixer(int newChannels) {
    AVChannelLayout inLayout{}, outLayout{};
    FillLayout(inLayout, source.channels, source.channelMask);
    FillLayout(outLayout, newChannels, 0);
    const int rateOfBoth = static_cast<int>(source.frequency);
    swr_alloc_set_opts2(&mixer, &outLayout, AV_SAMPLE_FMT_FLT, rateOfBoth, &inLayout, AV_SAMPLE_FMT_FLT,
                        rateOfBoth, 0, nullptr);
    if (mixer)
        av_opt_set_double(mixer, "rematrix_maxval", 1.0, 0);
    const bool opened = mixer && swr_init(mixer) >= 0;
    av_channel_layout_uninit(&inLayout);
    av_channel_layout_uninit(&outLayout);
    return opened;
}

bool Resampler::Open(const PcmFormat& from, int channels, std::uint32_t frequency, XString& error) {
    engine = std::make_unique<Engine>();
    engine->source = from;
    engine->channels = static_cast<std::size_t>(channels);
    engine->changesRate = frequency != from.frequency;
    if ((channels == from.channels || engine->OpenMixer(channels)) &&
        (!engine->changesRate || engine->rate.Open(channels, from.frequency, frequency, rateVeryHigh, error)))
        return true;
    error = L"Can't convert " + DecimalText(from.channels) + L" channels at " + DecimalText(from.frequency) +
            L" Hz to " + DecimalText(channels) + L" channels at " + DecimalText(frequency) + L" Hz";
    engine.reset();
    return false;
}

// The source's frames as floats, in the new channels; null on failure.
const float* Resampler::Mixed(const void* samples, std::uint32_t frames) {
    const float* in = static_cast<const float*>(samples);
    if (!engine->source.isFloat) {
        const std::size_t count = std::size_t(frames) * static_cast<std::size_t>(engine->source.channels);
        input.resize(std::max(input.size(), count));
        IntToFloat(static_cast<const std::int32_t*>(samples), input.data(), count, engine->source.bits);
        in = input.data();
    }
    if (!engine->mixer)
        return in;
    mixed.resize(std::max(mixed.size(), frames * engine->channels));
    const auto* from = reinterpret_cast<const std::uint8_t*>(in);
    auto* to = reinterpret_cast<std::uint8_t*>(mixed.data());
    const int count = static_cast<int>(frames); // without a change of rate nothing is held back
    return swr_convert(engine->mixer, &to, count, &from, count) == count ? mixed.data() : nullptr;
}

bool Resampler::Convert(const void* samples, std::uint32_t frames, XString& error) {
    outputFrames = samples ? frames : 0;
    const float* const in = samples ? Mixed(samples, frames) : nullptr;
    if (samples && !in) {
        error = L"Changing the channels failed";
        return false;
    }
    if (!engine->changesRate) {
        output = in;
        return true;
    }
    std::vector<double>& wide = engine->wide;
    wide.assign(in, in + outputFrames * engine->channels);
    if (!engine->rate.Convert(samples ? wide.data() : nullptr, outputFrames, error))
        return false;
    outputFrames = static_cast<std::uint32_t>(engine->rate.OutputFrames());
    const double* const made = engine->rate.Output();
    resampled.resize(std::max(resampled.size(), outputFrames * engine->channels));
    std::transform(made, made + outputFrames * engine->channels, resampled.begin(),
                   [](double sample) { return static_cast<float>(sample); });
    output = resampled.data();
    return true;
}
