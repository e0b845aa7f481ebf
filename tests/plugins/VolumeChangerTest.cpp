// The meter against the tone that defines loudness, and the effect by what is measured behind it.
#include "StreamFeed.h"

#include "plugins/dsp/VolumeChanger.h"

#include <cmath>
#include <numbers>
#include <random>

namespace {

using Samples = std::vector<std::int32_t>;
using Floats = std::vector<float>;

PcmFormat FormatOf(const AudioFormatRecord& record) {
    PcmFormat format;
    XString error;
    EXPECT_TRUE(ReadFormat(&record, format, error));
    return format;
}

struct ToneRow {
    int channels;
    std::uint32_t mask;
    int channel;
    double lufs;
};
constexpr double none = -1000;
const ToneRow toneRows[] = {
    {1, 0, 0, -3.01},    {2, 0, 1, -3.01},     {6, 0x3F, 2, -3.01},  {6, 0x3F, 3, none},
    {6, 0x3F, 4, -1.52}, {6, 0x60F, 5, -1.52}, {8, 0x63F, 4, -3.01}, {8, 0x63F, 7, -1.52},
    {6, 0, 3, none},     {12, 0, 3, -3.01},    {4, 0x107, 3, -3.01}, {2, 0x18, 0, none},
};

TEST(Loudness, ToneOfFullScaleInEachPlace) {
    for (const ToneRow& row : toneRows) {
        Floats tone(48000u * static_cast<std::size_t>(row.channels));
        for (std::size_t i = 0; i < 48000; ++i)
            tone[i * static_cast<std::size_t>(row.channels) + static_cast<std::size_t>(row.channel)] =
                static_cast<float>(std::sin(2 * std::numbers::pi * 997 / 48000 * static_cast<double>(i)));
        LoudnessMeter meter;
        ASSERT_TRUE(meter.Open(FormatOf(PcmRecord(row.channels, 0, 48000, row.mask))));
        ASSERT_TRUE(meter.Add(tone.data(), 48000));
        EXPECT_NEAR(meter.IntegratedLoudness().value_or(none), row.lufs, 0.02)
            << row.channel << " of " << row.mask;
        EXPECT_NEAR(meter.TruePeak(), 1, 0.01);
    }
}

// Noise whose level changes, so that the gates have something to do.
Samples Noise(int channels, std::size_t frames, double level) {
    std::mt19937 random(7);
    Samples samples;
    for (std::size_t i = 0; i < frames * static_cast<std::size_t>(channels); ++i) {
        const double part = static_cast<double>(i) / static_cast<double>(frames);
        const double now = level * (std::fmod(part, 0.5) < 0.2 ? 1 : 0.05);
        samples.push_back(static_cast<std::int32_t>((static_cast<double>(random() % 20001) - 10000) * now));
    }
    return samples;
}

TEST(Loudness, OneBadSampleIsNotTheEnd) {
    Floats floats(96000, 0.1f);
    for (std::size_t i = 0; i < floats.size(); i += 2)
        floats[i] = -0.1f;
    floats[3000] = NAN;
    floats[3001] = INFINITY;
    LoudnessMeter meter;
    ASSERT_TRUE(meter.Open(FormatOf(PcmRecord(1, 0, 48000))));
    ASSERT_TRUE(meter.Add(floats.data(), floats.size()));
    EXPECT_GT(meter.IntegratedLoudness().value_or(none), -30);
    EXPECT_LT(meter.TruePeak(), 0.5);
    EXPECT_FALSE(meter.Open(FormatOf(PcmRecord(65, 0, 48000))));
}

// The effect with its first pass, and without one if it wants none.
template <class Sample>
struct Measured {
    const std::vector<Sample>& source;
    VolumeChanger core;
    std::int32_t Begin(const wchar_t* settings, const AudioFormatRecord& format) {
        const std::int32_t answer = core.Begin(settings, format);
        if (answer != 1 || !core.WantsFirstPass())
            return answer;
        DspAudioBlock block{};
        block.input = source.data();
        block.inputFrames = static_cast<std::uint32_t>(source.size() / format.channels);
        EXPECT_TRUE(core.FirstPass(block));
        EXPECT_TRUE(core.FirstPass(DspAudioBlock{}));
        return 1;
    }
    bool Pass(DspAudioBlock& block) { return core.Pass(block); }
    bool End(DspAudioBlock& block) { return core.End(block); }
};

struct VolumeRow {
    const wchar_t* settings;
    double lufs, peak; // dB; none: anything
    double limit;      // dBTP; none: anything
};
const VolumeRow volumeRows[] = {
    {L"", -23, none, -1},
    {L"-loudness=\"-31.5\"", -31.5, none, -1},
    {L"-loudness=\"-3\"", none, none, -1},
    {L"-loudness=\"-8\" -over=\"limit\"", -8, none, -1}, // without need
    {L"-loudness=\"-3\" -over=\"limit\"", none, none, -1},
    {L"-peak=\"-0.5\"", none, -0.5, none},
    {L"-peak=\"-0.5\" -limit=\"-6\"", none, none, -6},
    {L"-gain=\"-6\"", none, -16.31, none}, // the noise comes up to -10.31 dB
    {L"-gain=\"30\" -limit=\"-2\" -over=\"limit\"", none, none, -2},
    {L"-gain=\"30\" -limit=\"-2\"", none, none, -2},
};

TEST(Volume, ComesOutAsItWasWanted) {
    const Samples noise = Noise(2, 4 * 44100, 1);
    for (const VolumeRow& row : volumeRows) {
        Measured<std::int32_t> effect{noise, {}};
        const AudioFormatRecord format = PcmRecord(2, 16, 44100);
        const Samples out = Feed(effect, row.settings, format, noise, 4096);
        ASSERT_EQ(out.size(), noise.size());
        LoudnessMeter meter;
        ASSERT_TRUE(meter.Open(FormatOf(format)));
        ASSERT_TRUE(meter.Add(out.data(), out.size() / 2));
        if (row.lufs != none) {
            EXPECT_NEAR(meter.IntegratedLoudness().value_or(none), row.lufs, 0.02) << row.settings;
        }
        if (row.peak != none) {
            EXPECT_NEAR(FactorToDb(meter.SamplePeak()), row.peak, 0.02) << row.settings;
        }
        if (row.limit != none) {
            EXPECT_LT(FactorToDb(meter.TruePeak()), row.limit + 0.1) << row.settings;
        }
        if (row.limit != none && row.lufs == none) {
            EXPECT_GT(FactorToDb(meter.TruePeak()), row.limit - 0.2) << row.settings;
        }
    }
}

// No gain, silence and short sounds at usual settings: see loudness.sh of the end-to-end tests.
TEST(Volume, WhatNeedsNoChangePassesBitByBit) {
    Samples wide = Noise(1, 44100, 60000);
    wide[5] = -2147483647 - 1;
    const AudioFormatRecord format = PcmRecord(1, 32, 44100);
    Samples low = wide;
    for (std::int32_t& sample : low)
        sample /= 8;
    const Samples silence(44100);
    struct Row {
        const Samples& source;
        const wchar_t* settings;
    };
    for (const Row& row :
         {Row{low, L"-gain=\"0\" -limit=\"-1\" -over=\"limit\""}, Row{low, L"-gain=\"0\" -limit=\"-1\""},
          Row{silence, L"-peak=\"-1\" -limit=\"-2\""}, Row{wide, L"-peak=\"0\""}}) {
        Measured<std::int32_t> effect{row.source, {}};
        EXPECT_EQ(Feed(effect, row.settings, format, row.source, 1000), row.source) << row.settings;
    }
}

} // namespace
