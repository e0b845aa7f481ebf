// Rounding to fewer bits: exact where nothing is lost, noise without distortion elsewhere; and what the
// settings of "Resample" make of a source.
#include "Spectrum.h"

#include "plugins/dsp/Quantizer.h"
#include "plugins/dsp/ResampleOptions.h"

#include <gtest/gtest.h>

namespace {

using Doubles = std::vector<double>;
using Ints = std::vector<std::int32_t>;
constexpr double step16 = 1.0 / 32768;
constexpr std::size_t longEnough = 1 << 17;

Ints Quantized(const Doubles& in, int bits, DitherKind dither, int channels = 1, std::uint32_t rate = 44100) {
    Quantizer quantizer;
    quantizer.Open(channels, rate, bits, dither);
    const std::int32_t* out = quantizer.Convert(in.data(), in.size() / static_cast<std::size_t>(channels));
    return Ints(out, out + in.size());
}

// A tone of so many steps of 16 bits, in whole periods.
constexpr double tonePlace = 1001.0 / longEnough;
Doubles Tone(double steps) {
    Doubles tone(longEnough);
    for (std::size_t i = 0; i < tone.size(); ++i)
        tone[i] = steps * step16 * std::sin(2 * std::numbers::pi * tonePlace * static_cast<double>(i));
    return tone;
}

Doubles Steps(const Ints& samples) {
    return Doubles(samples.begin(), samples.end());
}

Doubles ErrorsOf(const Doubles& in, DitherKind dither, std::uint32_t rate) {
    Doubles errors = Steps(Quantized(in, 16, dither, 1, rate));
    for (std::size_t i = 0; i < in.size(); ++i)
        errors[i] -= in[i] / step16;
    return errors;
}

TEST(Quantizer, KeepsWhatFits) {
    Doubles in;
    Ints expected;
    for (const std::int32_t sample : {-32768, -1, 0, 1, 32767}) {
        in.push_back(sample * step16);
        expected.push_back(sample);
    }
    for (const DitherKind dither : {ditherTriangular, ditherShaped, ditherNone})
        EXPECT_EQ(Quantized(in, 16, dither), expected) << dither;
    const Doubles odd = {1.0, -1.0, 7.0, -7.0, NAN, INFINITY, 0.6 / 8388608, -0.6 / 8388608};
    EXPECT_EQ(Quantized(odd, 24, ditherTriangular),
              (Ints{8388607, -8388608, 8388607, -8388608, 0, 8388607, 1, -1}));
    EXPECT_EQ(Quantized({1.0, -1.0}, 32, ditherTriangular), (Ints{INT32_MAX, INT32_MIN}));
    for (const std::int32_t sample : Quantized(Doubles(1000, 0.99999), 16, ditherShaped))
        ASSERT_GE(sample, 32700); // full scale neither wraps nor runs away
}

// A tone of a third of a step: rounding alone would leave nothing, and distorts a tone of 1.4 steps.
TEST(Quantizer, DitherKeepsFaintTonesWithoutHarmonics) {
    const double faint = std::pow(10.0, -100 / 20.0) / step16;
    for (const DitherKind dither : {ditherTriangular, ditherShaped}) {
        const Doubles out = Steps(Quantized(Tone(faint), 16, dither));
        EXPECT_NEAR(Decibels(std::pow(ToneAmplitude(out, tonePlace) / faint, 2)), 0, 0.2) << dither;
        for (const int harmonic : {2, 3, 4, 5, 7})
            EXPECT_LT(ToneAmplitude(out, harmonic * tonePlace) * step16, 6e-7) << dither << ", " << harmonic;
    }
    EXPECT_GT(ToneAmplitude(Steps(Quantized(Tone(1.4), 16, ditherNone)), 3 * tonePlace), 0.05);
}

TEST(Quantizer, TriangularNoiseIsWhiteAndAQuarterOfASquaredStep) {
    for (const double steps : {0.3, 1000.0}) {
        const Doubles errors = ErrorsOf(Tone(steps), ditherTriangular, 44100);
        EXPECT_NEAR(MeanPower(errors), 0.25, 0.005) << steps;
        const Doubles spectrum = NoiseSpectrum(errors);
        for (std::size_t i = 0; i < spectrum.size(); ++i)
            EXPECT_NEAR(Decibels(spectrum[i] / 0.25), 0, 1) << steps << ", " << i;
    }
    // The noise of one channel says nothing of another's.
    const Ints both = Quantized(Doubles(longEnough, 0.5 * step16), 16, ditherTriangular, 2);
    double common = 0;
    for (std::size_t i = 0; i < both.size(); i += 2)
        common += (both[i] - 0.5) * (both[i + 1] - 0.5);
    EXPECT_NEAR(common / (longEnough / 2.0), 0, 0.006);
}

struct ShapeRow {
    std::uint32_t rate;
    double weighed, whole; // dB against triangular noise, at most
};

// Noise as ears weigh it goes down, all of it does not go up beyond bounds, and its spectrum is the filter's.
TEST(Quantizer, ShapedNoiseGoesWhereEarsAreDeaf) {
    constexpr ShapeRow rows[] = {
        {8000, -1.5, 4}, {22050, -2, 3}, {44100, -13.5, 11}, {48000, -14.5, 10.5}, {96000, -20, 6}};
    for (const ShapeRow& row : rows) {
        const Doubles errors = ErrorsOf(Tone(1000), ditherShaped, row.rate);
        EXPECT_LT(Decibels(MeanPower(errors) / 0.25), row.whole) << row.rate;
        const Doubles spectrum = NoiseSpectrum(errors);
        const NoiseShape shape = QuietestNoise(row.rate);
        double heard = 0, plain = 0;
        for (std::size_t i = 0; i < spectrum.size(); ++i) {
            const double place = static_cast<double>(i + 1) / 256;
            std::complex<double> response = 1;
            for (int tap = 1; tap <= noiseShapeOrder; ++tap)
                response -= shape[static_cast<std::size_t>(tap - 1)] *
                            std::polar(1.0, -2 * std::numbers::pi * place * tap);
            EXPECT_NEAR(Decibels(spectrum[i] / 0.25), Decibels(std::norm(response)), 1.5)
                << row.rate << " at " << place * row.rate << " Hz";
            const double weight = std::pow(10.0, -HearingThreshold(place * row.rate) / 10);
            heard += weight * spectrum[i] / 0.25;
            plain += weight;
        }
        EXPECT_LT(Decibels(heard / plain), row.weighed) << row.rate;
    }
}

struct TargetRow {
    const wchar_t* settings;
    int bits; // 0 is float
    std::uint32_t rate;
    int newBits;
    std::uint32_t newRate;
};

TEST(ResampleTarget, FollowsTheSettings) {
    constexpr TargetRow rows[] = {
        {L"", 16, 44100, 16, 44100},
        {L"", 0, 96000, 0, 44100},
        {L"", 24, 8000, 24, 44100},
        {L"-rate=\"source\" -bits=\"16\"", 24, 96000, 16, 96000},
        {L"-rate=\"192000\" -bits=\"Float\"", 32, 96000, 0, 192000},
        {L"-only=\"down\" -rate=\"48000\" -bits=\"24\"", 16, 44100, 16, 44100},
        {L"-only=\"down\" -rate=\"48000\" -bits=\"24\"", 0, 96000, 24, 48000},
        {L"-only=\"down\" -bits=\"float\"", 24, 44100, 24, 44100},
        {L"-only=\"down\" -bits=\"float\"", 0, 48000, 0, 44100},
        {L"-only=\"any\" -rate=\"48000\" -bits=\"32\"", 12, 44100, 32, 48000},
    };
    for (const TargetRow& row : rows) {
        PcmFormat source;
        source.isFloat = row.bits == 0;
        source.bits = source.isFloat ? 32 : row.bits;
        source.frequency = row.rate;
        ResampleTarget target;
        XString error;
        ASSERT_TRUE(target.Read(row.settings, source, error)) << error.Text();
        EXPECT_EQ(target.isFloat ? 0 : target.bits, row.newBits) << row.settings;
        EXPECT_EQ(target.frequency, row.newRate) << row.settings;
        EXPECT_EQ(target.IsSameAs(source), row.bits == row.newBits && row.rate == row.newRate);
    }
    for (const wchar_t* bad :
         {L"-rate=\"999\"", L"-rate=\"fast\"", L"-bits=\"8\"", L"-dither", L"-gain=\"1\""}) {
        ResampleTarget target;
        XString error;
        EXPECT_FALSE(target.Read(bad, PcmFormat(), error)) << bad;
        EXPECT_FALSE(error.IsEmpty());
    }
}

} // namespace
