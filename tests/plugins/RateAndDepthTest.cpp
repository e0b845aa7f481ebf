// Changes of rate against tones that are known at every moment of time: length, place, level, aliases.
#include "Spectrum.h"
#include "StreamFeed.h"

#include "plugins/dsp/RateAndDepth.h"

namespace {

using Floats = std::vector<float>;
using Ints = std::vector<std::int32_t>;

XString RateSetting(std::uint32_t rate, const wchar_t* more = L"") {
    return XString(L"-rate=\"") + DecimalText(rate) + L"\" " + more;
}

struct Pair {
    std::uint32_t from, to;
};
constexpr Pair pairs[] = {{44100, 48000},  {48000, 44100}, {96000, 44100}, {44100, 96000},
                          {8000, 192000},  {192000, 8000}, {44100, 44101}, {11025, 8000},
                          {352800, 48000}, {1000, 768000}, {768000, 1000}, {37800, 44100}};

TEST(Resample, LengthsAreExact) {
    for (const Pair& pair : pairs)
        for (const int channels : {1, 2, 3, 5, 6, 7, 8})
            for (const int frames : {0, 1, 2, 3, 10, 99, 100, 4001}) {
                if (frames > 100 && (channels > 3 || pair.to > 100 * pair.from))
                    continue;
                const std::size_t count = static_cast<std::size_t>(frames * channels);
                RateAndDepth effect;
                const Ints out = Feed(effect, RateSetting(pair.to), PcmRecord(channels, 16, pair.from),
                                      Ints(count, 99), frames > 100 ? 1000 : 7);
                const double expected = std::floor(frames * (1.0 * pair.to / pair.from) + 0.5);
                EXPECT_EQ(out.size(), static_cast<std::size_t>(expected) * static_cast<std::size_t>(channels))
                    << frames << " frames from " << pair.from << " to " << pair.to
                    << ", channels: " << channels;
                EXPECT_TRUE(effect.error.IsEmpty());
            }
}

// Tones that fade in and out softly, one per channel; `hz` 0 is silence.
double SoundAt(double seconds, double length, double hz) {
    return 0.5 * std::sin(2 * std::numbers::pi * hz * seconds) *
           std::pow(std::sin(std::numbers::pi * seconds / length), 4);
}

std::vector<double> Sound(std::uint32_t rate, double length, const std::vector<double>& tones) {
    std::vector<double> sound;
    const int frames = static_cast<int>(length * rate);
    for (int frame = 0; frame < frames; ++frame)
        for (const double hz : tones)
            sound.push_back(SoundAt(static_cast<double>(frame) / rate, length, hz));
    return sound;
}

struct ToneRow {
    Pair pair;
    const wchar_t* settings;
    std::vector<double> tones; // Hz, a channel each; above half of either rate nothing may be left
    double farthest;           // from what is expected, in dB to full scale
};
const ToneRow toneRows[] = {
    {{44100, 48000}, L"", {1000, 0, 20000}, -150},
    {{48000, 44100}, L"", {997, 20000, 23000, 22060}, -150},
    {{96000, 44100}, L"", {40, 19000, 23000, 30000, 44000, 47000}, -150},
    {{44100, 96000}, L"", {17000}, -150},
    {{192000, 48000}, L"", {21500, 24500}, -150},
    {{8000, 192000}, L"", {440, 3600}, -150},
    {{44100, 44101}, L"", {15000}, -150},
    {{96000, 44100}, L"-quality=\"high\"", {997, 19000, 23000, 44000}, -120},
    {{44100, 48000}, L"-quality=\"high\"", {997, 20000}, -120},
};

TEST(Resample, TonesKeepTheirLevelAndPlaceAndAliasesVanish) {
    for (const ToneRow& row : toneRows) {
        constexpr double length = 0.5;
        const std::vector<double> in = Sound(row.pair.from, length, row.tones);
        RateAndDepth effect;
        const Floats out = Feed(effect, RateSetting(row.pair.to, row.settings),
                                PcmRecord(static_cast<int>(row.tones.size()), 0, row.pair.from),
                                Floats(in.begin(), in.end()), 5000);
        std::vector<double> audible = row.tones;
        for (double& hz : audible)
            hz = hz < row.pair.to / 2.0 ? hz : 0;
        std::vector<double> expected = Sound(row.pair.to, length, audible);
        ASSERT_NEAR(static_cast<double>(out.size()), static_cast<double>(expected.size()), 8);
        const std::size_t channels = row.tones.size();
        for (std::size_t channel = 0; channel < channels; ++channel) {
            std::vector<double> errors;
            for (std::size_t i = channel; i < std::min(out.size(), expected.size()); i += channels)
                errors.push_back(static_cast<double>(out[i]) - expected[i]);
            EXPECT_LT(Decibels(2 * MeanPower(errors)), row.farthest)
                << row.tones[channel] << " Hz from " << row.pair.from << " to " << row.pair.to;
        }
    }
}

TEST(Resample, IntegersKeepTheirPrecisionAndBlocksDoNotMatter) {
    const std::vector<double> in = Sound(44100, 0.3, {1000, 7000}),
                              expected = Sound(48000, 0.3, {1000, 7000});
    constexpr double step = 1.0 / 8388608;
    Ints source;
    for (const double sample : in)
        source.push_back(static_cast<std::int32_t>(std::lround(sample / step)));
    RateAndDepth whole;
    const Ints out = Feed(whole, RateSetting(48000), PcmRecord(2, 24, 44100), source, 100000);
    ASSERT_EQ(out.size(), expected.size());
    std::vector<double> errors;
    for (std::size_t i = 0; i < out.size(); ++i)
        errors.push_back(out[i] - expected[i] / step);
    EXPECT_LT(MeanPower(errors), 0.18); // two roundings of 1/12 each
    for (const std::size_t size : {1, 7, 4096}) {
        RateAndDepth effect;
        EXPECT_EQ(Feed(effect, RateSetting(48000), PcmRecord(2, 24, 44100), source, size), out) << size;
    }
}

TEST(Resample, FitsTheFormat) {
    AudioFormatRecord format = PcmRecord(2, 24, 96000);
    format.frameCount = 96001;
    format.lengthMs = 1000;
    format.flags = ztFormatExactLength | ztFormatLossless;
    RateAndDepth effect;
    EXPECT_EQ(effect.Begin(L"-bits=\"float\"", format), 1);
    EXPECT_EQ(format.frequency, 44100u);
    EXPECT_EQ(format.frameCount, 44100u);
    EXPECT_EQ(format.lengthMs, 1000u);
    EXPECT_EQ(format.sampleKind, ztSampleFloat);
    EXPECT_EQ(format.bitsPerSample, 32);
    EXPECT_EQ(format.flags, std::uint32_t{ztFormatExactLength | ztFormatLossless});
    RateAndDepth same;
    EXPECT_EQ(same.Begin(L"-bits=\"float\"", format), 0);
}

} // namespace
