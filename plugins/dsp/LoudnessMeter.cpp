#include "plugins/dsp/LoudnessMeter.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::size_t mostChannels = 64;
constexpr int hopsOfABlock = 4;

// By speaker bit. Of BS.1770 only the surrounds at 60 to 120 degrees weigh more: the back pair stands
// there unless there is a side pair as well.
int PlaceOf(std::uint32_t speaker, bool hasSides) {
    switch (speaker) {
    case 0x1:
        return EBUR128_Mp030;
    case 0x2:
        return EBUR128_Mm030;
    case 0x8: // low frequencies
        return EBUR128_UNUSED;
    case 0x10:
        return hasSides ? EBUR128_Mp135 : EBUR128_Mp110;
    case 0x20:
        return hasSides ? EBUR128_Mm135 : EBUR128_Mm110;
    case 0x200:
        return EBUR128_Mp090;
    case 0x400:
        return EBUR128_Mm090;
    default:
        return EBUR128_Mp000; // any place that weighs 1
    }
}

void SetPlaces(ebur128_state* state, std::uint32_t mask, unsigned channels) {
    constexpr std::uint32_t sides = 0x600;
    for (unsigned channel = 0; channel < channels; ++channel) {
        const std::uint32_t speaker = mask & (0 - mask); // the lowest that is left
        (void)ebur128_set_channel(state, channel, PlaceOf(speaker, (mask & sides) != 0));
        mask &= mask - (mask != 0 ? 1 : 0);
    }
}

} // namespace

void LoudnessMeter::Closer::operator()(ebur128_state* state) const noexcept {
    ebur128_destroy(&state);
}

bool LoudnessMeter::Open(const PcmFormat& format, bool wantsTruePeak) {
    *this = LoudnessMeter();
    channels = static_cast<std::size_t>(format.channels);
    if (channels == 0 || channels > mostChannels)
        return false;
    hasTruePeak = wantsTruePeak;
    state.reset(ebur128_init(static_cast<unsigned>(channels), format.frequency,
                             EBUR128_MODE_M | (wantsTruePeak ? EBUR128_MODE_TRUE_PEAK : 0)));
    if (!state)
        return false;
    SetPlaces(state.get(), format.channelMask ? format.channelMask : UsualChannelMask(format.channels),
              static_cast<unsigned>(channels));
    hop = (format.frequency + 5) / 10;
    bridge.Open(format);
    return true;
}

bool LoudnessMeter::Add(const void* samples, std::size_t frames) {
    if (!state)
        return false;
    const float* in = bridge.ToFloat(samples, frames * channels);
    const std::size_t count = frames * channels;
    // One number that is none would stay in the filters for ever.
    if (!std::all_of(in, in + count, [](float sample) { return std::isfinite(sample); })) {
        cleaned.assign(in, in + count);
        for (float& sample : cleaned)
            sample = std::isfinite(sample) ? sample : 0;
        in = cleaned.data();
    }
    for (std::size_t i = 0; i < count; ++i)
        samplePeak = std::max(samplePeak, std::abs(in[i]));
    while (frames > 0) {
        const std::size_t step = std::min(frames, hop - inHop);
        if (ebur128_add_frames_float(state.get(), in, step) != EBUR128_SUCCESS)
            return false;
        in += step * channels;
        frames -= step;
        inHop += step;
        if (inHop < hop)
            break;
        inHop = 0;
        hops = std::min(hops + 1, hopsOfABlock);
        double lufs = 0;
        if (hops == hopsOfABlock && ebur128_loudness_momentary(state.get(), &lufs) == EBUR128_SUCCESS)
            histogram.AddBlock(lufs);
    }
    return true;
}

double LoudnessMeter::TruePeak() const {
    double highest = samplePeak;
    for (unsigned channel = 0; hasTruePeak && channel < channels; ++channel) {
        double peak = 0;
        if (ebur128_true_peak(state.get(), channel, &peak) == EBUR128_SUCCESS)
            highest = std::max(highest, peak);
    }
    return highest;
}
