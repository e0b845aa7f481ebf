#include "plugins/dsp/ChannelMixer.h"

#include "plugins/common/Settings.h"

#include <bit>
#include <numeric>

namespace {

constexpr SettingsOption options[] = {{L"to", L"stereo|mono|swap|left|right"}};

constexpr std::uint32_t speakersMono = 0x4, speakersStereo = 0x3;
constexpr int lowFrequency = 3; // bit of the mask
constexpr float minus3dB = 0.70710678f, minus6dB = 0.5f;

// Bits of the left speaker and of its partner on the right, those in front first.
constexpr int pairs[][2] = {{0, 1}, {6, 7}, {9, 10}, {4, 5}, {12, 14}, {15, 17}, {29, 30}};
// Bits of single speakers that stand behind or above.
constexpr std::uint32_t singleSurrounds = 1u << 8 | 1u << 11 | 1u << 13 | 1u << 16;

struct StereoGains {
    float left, right;
};

StereoGains GainsOf(int bit) {
    if (bit == lowFrequency)
        return {0, 0};
    for (const auto& pair : pairs)
        for (int side = 0; side < 2; ++side)
            if (pair[side] == bit) {
                const float gain = bit <= 1 || bit == 6 || bit == 7 || bit >= 29 ? 1.0f : minus3dB;
                return {side == 0 ? gain : 0, side == 1 ? gain : 0};
            }
    const float gain = singleSurrounds >> bit & 1 ? minus6dB : minus3dB;
    return {gain, gain};
}

// The bits of a mask in the order of the channels.
std::vector<int> SpeakersOf(std::uint32_t mask) {
    std::vector<int> bits;
    for (int bit = 0; bit < 32; ++bit)
        if (mask >> bit & 1)
            bits.push_back(bit);
    return bits;
}

std::size_t ChannelOf(const std::vector<int>& speakers, int bit) {
    std::size_t channel = 0;
    while (channel < speakers.size() && speakers[channel] != bit)
        ++channel;
    return channel;
}

// The foremost channel of a side; without sides, the first channel.
std::size_t ChannelOfSide(const std::vector<int>& speakers, int side) {
    for (const auto& pair : pairs)
        if (const std::size_t channel = ChannelOf(speakers, pair[side]); channel < speakers.size())
            return channel;
    return 0;
}

ChannelMix OneChannel(std::size_t inputs, std::size_t channel) {
    ChannelMix mix{1, speakersMono, std::vector<float>(inputs)};
    mix.gains[channel] = 1;
    return mix;
}

ChannelMix Swapped(const std::vector<int>& speakers, std::uint32_t mask) {
    const std::size_t count = speakers.size();
    ChannelMix mix{static_cast<int>(count), mask, std::vector<float>(count * count)};
    for (std::size_t output = 0; output < count; ++output) {
        std::size_t input = output;
        for (const auto& pair : pairs)
            for (int side = 0; side < 2; ++side)
                if (pair[side] == speakers[output])
                    input = ChannelOf(speakers, pair[1 - side]);
        mix.gains[output * count + (input < count ? input : output)] = 1;
    }
    return mix;
}

void ScaleToFull(ChannelMix& mix, std::size_t inputs) {
    float most = 0;
    for (auto row = mix.gains.begin(); row != mix.gains.end(); row += static_cast<std::ptrdiff_t>(inputs))
        most = std::max(most, std::accumulate(row, row + static_cast<std::ptrdiff_t>(inputs), 0.0f));
    for (float& gain : mix.gains)
        gain /= most;
}

ChannelMix Downmix(const std::vector<int>& speakers, int outputs) {
    const std::size_t inputs = speakers.size();
    ChannelMix mix{outputs, outputs == 1 ? speakersMono : speakersStereo,
                   std::vector<float>(inputs * static_cast<std::size_t>(outputs))};
    for (std::size_t i = 0; i < inputs; ++i) {
        const StereoGains gains = GainsOf(speakers[i]);
        if (outputs == 1) {
            mix.gains[i] = gains.left + gains.right;
        } else {
            mix.gains[i] = gains.left;
            mix.gains[inputs + i] = gains.right;
        }
    }
    ScaleToFull(mix, inputs);
    return mix;
}

} // namespace

std::vector<int> ChannelMix::Copies() const {
    const std::size_t inputs = gains.size() / static_cast<std::size_t>(outputs);
    std::vector<int> copies;
    for (std::size_t output = 0; output < static_cast<std::size_t>(outputs); ++output) {
        int source = -1;
        for (std::size_t input = 0; input < inputs; ++input) {
            const float gain = gains[output * inputs + input];
            if (gain == 0)
                continue;
            if (gain != 1 || source >= 0)
                return {};
            source = static_cast<int>(input);
        }
        if (source < 0)
            return {};
        copies.push_back(source);
    }
    return copies;
}

ChannelMix BuildChannelMix(ChannelChoice choice, std::uint32_t mask) {
    // A single speaker is mono, wherever it stands.
    const std::vector<int> speakers = SpeakersOf(std::popcount(mask) == 1 ? speakersMono : mask);
    switch (choice) {
    case channelsMono:
        return Downmix(speakers, 1);
    case channelsSwap:
        return Swapped(speakers, mask);
    case channelsLeft:
        return OneChannel(speakers.size(), ChannelOfSide(speakers, 0));
    case channelsRight:
        return OneChannel(speakers.size(), ChannelOfSide(speakers, 1));
    default:
        return Downmix(speakers, 2);
    }
}

std::int32_t ChannelMixer::Begin(const wchar_t* text, AudioFormatRecord& format) {
    Settings settings;
    PcmFormat source;
    if (!settings.Parse(text, options, error) || !ReadFormat(&format, source, error))
        return -1;
    const XString word = settings.Word(L"to", channelWords[channelsStereo]);
    int choice = channelsStereo;
    while (!word.EqualsNoCase(channelWords[choice]))
        ++choice;
    const std::uint32_t mask = source.channelMask ? source.channelMask : UsualChannelMask(source.channels);
    if (mask == 0) {
        error =
            L"The source has " + DecimalText(source.channels) + L" channels and does not say which is where";
        return -1;
    }
    inputs = source.channels;
    mix = BuildChannelMix(static_cast<ChannelChoice>(choice), mask);
    copies = mix.Copies();
    bool isSame = mix.outputs == inputs && !copies.empty();
    for (int i = 0; isSame && i < inputs; ++i)
        isSame = copies[static_cast<std::size_t>(i)] == i;
    if (isSame)
        return 0;
    bridge.Open(source);
    format.channels = static_cast<std::uint16_t>(mix.outputs);
    format.channelMask = mix.outputMask;
    return 1;
}

void ChannelMixer::Copy(const std::uint32_t* in, std::size_t frames) {
    words.resize(frames * copies.size());
    std::uint32_t* out = words.data();
    for (std::size_t frame = 0; frame < frames; ++frame, in += inputs)
        for (const int channel : copies)
            *out++ = in[channel];
}

const void* ChannelMixer::Mix(const void* samples, std::size_t frames) {
    const std::size_t width = static_cast<std::size_t>(inputs);
    const float* in = bridge.ToFloat(samples, frames * width);
    mixed.resize(frames * static_cast<std::size_t>(mix.outputs));
    float* out = mixed.data();
    for (std::size_t frame = 0; frame < frames; ++frame, in += width)
        for (const float* gain = mix.gains.data(); gain != mix.gains.data() + mix.gains.size();) {
            double sum = 0;
            for (std::size_t channel = 0; channel < width; ++channel)
                sum += static_cast<double>(in[channel]) * static_cast<double>(*gain++);
            *out++ = static_cast<float>(sum);
        }
    return bridge.FromFloat(mixed.data(), mixed.size());
}

bool ChannelMixer::Pass(DspAudioBlock& block) {
    block.outputFrames = block.inputFrames;
    if (copies.empty()) {
        block.output = Mix(block.input, block.inputFrames);
    } else {
        Copy(static_cast<const std::uint32_t*>(block.input), block.inputFrames);
        block.output = words.data();
    }
    return true;
}

bool ChannelMixer::End(DspAudioBlock& block) {
    block.outputFrames = 0; // nothing is held
    return true;
}
