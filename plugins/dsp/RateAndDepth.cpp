#include "plugins/dsp/RateAndDepth.h"

#include <algorithm>

std::int32_t RateAndDepth::Begin(const wchar_t* settings, AudioFormatRecord& format) {
    if (!ReadFormat(&format, source, error) || !target.Read(settings, source, error))
        return -1;
    if (target.IsSameAs(source))
        return 0;
    changesRate = target.frequency != source.frequency;
    if (changesRate && !rate.Open(source.channels, source.frequency, target.frequency,
                                  static_cast<RateQuality>(target.quality), error))
        return -1;
    if (!target.isFloat)
        quantizer.Open(source.channels, target.frequency, target.bits, target.dither);
    // The play length stays.
    format.frameCount = RateFrames(format.frameCount, source.frequency, target.frequency);
    format.frequency = target.frequency;
    format.sampleKind = target.isFloat ? ztSampleFloat : ztSampleInteger;
    format.bitsPerSample = static_cast<std::uint16_t>(target.bits);
    return 1;
}

const double* RateAndDepth::ToDouble(const void* samples, std::size_t count) {
    doubles.resize(std::max(doubles.size(), count));
    if (source.isFloat) {
        std::copy_n(static_cast<const float*>(samples), count, doubles.begin());
    } else {
        const double step = 1.0 / static_cast<double>(std::uint64_t{1} << (source.bits - 1));
        const auto* in = static_cast<const std::int32_t*>(samples);
        for (std::size_t i = 0; i < count; ++i)
            doubles[i] = in[i] * step;
    }
    return doubles.data();
}

void RateAndDepth::Deliver(const double* samples, std::size_t frames, DspAudioBlock& block) {
    block.outputFrames = static_cast<std::uint32_t>(frames);
    if (!target.isFloat) {
        block.output = quantizer.Convert(samples, frames);
        return;
    }
    const std::size_t count = frames * static_cast<std::size_t>(source.channels);
    floats.resize(std::max(floats.size(), count));
    std::transform(samples, samples + count, floats.begin(),
                   [](double sample) { return static_cast<float>(sample); });
    block.output = floats.data();
}

bool RateAndDepth::Pass(DspAudioBlock& block) {
    const std::size_t frames = block.inputFrames;
    const double* samples = ToDouble(block.input, frames * static_cast<std::size_t>(source.channels));
    if (!changesRate) {
        Deliver(samples, frames, block);
        return true;
    }
    if (!rate.Convert(samples, frames, error))
        return false;
    Deliver(rate.Output(), rate.OutputFrames(), block);
    return true;
}

bool RateAndDepth::End(DspAudioBlock& block) {
    block.outputFrames = 0;
    if (!changesRate || isEnded)
        return true;
    isEnded = true;
    if (!rate.Convert(nullptr, 0, error))
        return false;
    Deliver(rate.Output(), rate.OutputFrames(), block);
    return true;
}
