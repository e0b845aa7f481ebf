// Other channels than the source's: mono, stereo, one side, sides exchanged. Portable.
//
// Downmixes take the front channels whole, centre and surrounds at -3 dB and a single back or top
// channel at -6 dB on each side, without the low-frequency channel (ITU-R BS.775); mono is the sum of
// both sides. All of it is then scaled so that no sample can clip, the same for every file.
#pragma once

#include "plugins/dsp/FloatBridge.h"

enum ChannelChoice : int { channelsStereo, channelsMono, channelsSwap, channelsLeft, channelsRight };
// Settings: -to="WORD", in the order of ChannelChoice; without it the first.
inline constexpr const wchar_t* channelWords[] = {L"stereo", L"mono", L"swap", L"left", L"right"};

struct ChannelMix {
    int outputs = 0;
    std::uint32_t outputMask = 0;
    std::vector<float> gains; // for each output one of every input

    // If every output is one input as it is: which; otherwise empty.
    [[nodiscard]] std::vector<int> Copies() const;
};
// `mask` has one bit per channel of the source and at least one.
[[nodiscard]] ChannelMix BuildChannelMix(ChannelChoice choice, std::uint32_t mask);

class ChannelMixer {
public:
    // 1; 0 if the audio stays as it is; -1: `error` says why.
    [[nodiscard]] std::int32_t Begin(const wchar_t* settings, AudioFormatRecord& format);
    [[nodiscard]] bool Pass(DspAudioBlock& block);
    [[nodiscard]] bool End(DspAudioBlock& block);

    XString error;

private:
    void Copy(const std::uint32_t* in, std::size_t frames);
    const void* Mix(const void* in, std::size_t frames);

    int inputs = 0;
    ChannelMix mix;
    std::vector<int> copies;
    FloatBridge bridge;
    std::vector<std::uint32_t> words;
    std::vector<float> mixed;
};
