#include "plugins/dsp/VolumeChanger.h"

std::int32_t VolumeChanger::Begin(const wchar_t* settings, const AudioFormatRecord& format) {
    if (!choice.Parse(settings, error) || !ReadFormat(&format, source, error))
        return -1;
    if (choice.DoesNothing())
        return 0;
    bridge.Open(source);
    if (!choice.NeedsMeasure()) {
        Follow(choice.Plan(nullptr));
    } else if (!meter.Open(source, choice.NeedsTruePeak())) {
        error = L"The loudness of audio with " + DecimalText(source.channels) + L" channels at " +
                DecimalText(source.frequency) + L" Hz can't be measured";
        return -1;
    }
    return 1;
}

void VolumeChanger::Follow(const VolumePlan& plan) {
    factor = plan.gainDb == 0 ? 1 : DbToFactor(plan.gainDb);
    isLimited = plan.isLimited;
    if (isLimited)
        limiter.Open(static_cast<std::size_t>(source.channels), source.frequency, DbToFactor(*choice.limit));
}

bool VolumeChanger::FirstPass(const DspAudioBlock& block) {
    if (!block.input) {
        const VolumeMeasure measure = {meter.IntegratedLoudness(), meter.SamplePeak(), meter.TruePeak()};
        Follow(choice.Plan(&measure));
        return true;
    }
    if (!meter.Add(block.input, block.inputFrames)) {
        error = L"There is not enough memory to measure the audio";
        return false;
    }
    return true;
}

void VolumeChanger::Deliver(DspAudioBlock& block, const std::vector<float>& samples) {
    block.output = bridge.FromFloat(samples.data(), samples.size());
    block.outputFrames =
        static_cast<std::uint32_t>(samples.size() / static_cast<std::size_t>(source.channels));
}

bool VolumeChanger::Pass(DspAudioBlock& block) {
    if (factor == 1 && !isLimited) {
        block.output = block.input;
        block.outputFrames = block.inputFrames;
        return true;
    }
    const std::size_t count = block.inputFrames * static_cast<std::size_t>(source.channels);
    const float* const in = bridge.ToFloat(block.input, count);
    scaled.resize(count);
    for (std::size_t i = 0; i < count; ++i)
        scaled[i] = static_cast<float>(static_cast<double>(in[i]) * factor);
    if (isLimited) {
        limited.clear();
        limiter.Pass(scaled.data(), block.inputFrames, limited);
    }
    Deliver(block, isLimited ? limited : scaled);
    return true;
}

bool VolumeChanger::End(DspAudioBlock& block) {
    limited.clear();
    if (isLimited)
        limiter.End(limited);
    isLimited = false; // called until nothing comes
    Deliver(block, limited);
    return true;
}
