// libswresample at a quality whose errors stay below 16 bit noise.
#include "plugins/common/Resampler.h"

#include "plugins/common/PcmConvert.h"

extern "C" {
#include <libavutil/channel_layout.h>
#include <libavutil/opt.h>
#include <libswresample/swresample.h>
}

struct Resampler::Engine {
    ~Engine() { swr_free(&context); }

    SwrContext* context = nullptr;
    PcmFormat source;
    int channels = 0;
    std::uint32_t frequency = 0;
    std::uint64_t taken = 0; // source frames
    std::uint64_t given = 0; // new frames
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

bool Resampler::Open(const PcmFormat& from, int channels, std::uint32_t frequency, XString& error) {
    engine = std::make_unique<Engine>();
    engine->source = from;
    engine->channels = channels;
    engine->frequency = frequency;
    AVChannelLayout inLayout{}, outLayout{};
    FillLayout(inLayout, from.channels, from.channelMask);
    FillLayout(outLayout, channels, channels == from.channels ? from.channelMask : 0);
    swr_alloc_set_opts2(&engine->context, &outLayout, AV_SAMPLE_FMT_FLT, static_cast<int>(frequency),
                        &inLayout, AV_SAMPLE_FMT_FLT, static_cast<int>(from.frequency), 0, nullptr);
    if (engine->context) {
        av_opt_set_double(engine->context, "rematrix_maxval", 1.0, 0);
        av_opt_set_int(engine->context, "filter_size", 64, 0);
        av_opt_set_double(engine->context, "cutoff", 0.97, 0);
    }
    const bool opened = engine->context && swr_init(engine->context) >= 0;
    av_channel_layout_uninit(&inLayout);
    av_channel_layout_uninit(&outLayout);
    if (!opened) {
        error = L"Can't convert " + DecimalText(from.channels) + L" channels at " +
                DecimalText(from.frequency) + L" Hz to " + DecimalText(channels) + L" channels at " +
                DecimalText(frequency) + L" Hz";
        engine.reset();
    }
    return opened;
}

bool Resampler::Convert(const void* samples, std::uint32_t frames, XString& error) {
    const std::size_t channels = static_cast<std::size_t>(engine->channels);
    const std::uint8_t* in = static_cast<const std::uint8_t*>(samples);
    if (samples && !engine->source.isFloat) {
        const std::size_t count = std::size_t(frames) * static_cast<std::size_t>(engine->source.channels);
        input.resize(std::max(input.size(), count));
        IntToFloat(static_cast<const std::int32_t*>(samples), input.data(), count, engine->source.bits);
        in = reinterpret_cast<const std::uint8_t*>(input.data());
    }
    const int room = swr_get_out_samples(engine->context, static_cast<int>(frames)) + 1;
    output.resize(std::max(output.size(), static_cast<std::size_t>(room) * channels));
    std::uint8_t* out = reinterpret_cast<std::uint8_t*>(output.data());
    const int made = swr_convert(engine->context, &out, room, in ? &in : nullptr, static_cast<int>(frames));
    if (made < 0) {
        error = L"Changing the rate or the channels failed";
        return false;
    }
    outputFrames = static_cast<std::uint32_t>(made);
    if (samples) {
        engine->taken += frames;
    } else {
        // The filter's tail is cut, or filled with silence, to the length that the source's stands for.
        const std::uint64_t rate = engine->source.frequency;
        const std::uint64_t whole = (engine->taken * engine->frequency + rate / 2) / rate;
        outputFrames = static_cast<std::uint32_t>(whole > engine->given ? whole - engine->given : 0);
        output.resize(std::max(output.size(), outputFrames * channels));
        std::fill(output.begin() + static_cast<std::ptrdiff_t>(static_cast<std::size_t>(made) * channels),
                  output.end(), 0.0f);
    }
    engine->given += outputFrames;
    return true;
}
