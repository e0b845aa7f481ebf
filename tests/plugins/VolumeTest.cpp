// Loudness out of blocks, what gain follows from it, and the limiter, judged by a finer oversampling.
#include "StreamFeed.h"

#include "plugins/dsp/LoudnessHistogram.h"
#include "plugins/dsp/TruePeakLimiter.h"
#include "plugins/dsp/VolumeChoice.h"

#include <cmath>
#include <numbers>
#include <random>

namespace {

constexpr double none = -1000;

struct HistogramRow {
    std::vector<std::pair<double, int>> blocks; // LUFS, how many
    double integrated;
};

TEST(Loudness, MeanOfTheBlocksAboveBothGates) {
    const HistogramRow rows[] = {
        {{}, none},
        {{{-70.01, 5}, {-INFINITY, 3}, {NAN, 1}}, none},
        {{{-70, 1}}, -70},
        {{{-23, 40}, {-75, 900}}, -23},
        {{{-20, 100}, {-40, 100}}, -20}, // the relative gate is at -33
        {{{-20, 1}, {-29, 1}}, -22.496}, // and here it is below both
        {{{-20, 1}, {-31.5, 1}}, -22.713},
        {{{-20, 1}, {-30, 1000}}, -29.961}, // the quiet ones are the programme
        {{{30, 3}, {500, 1}}, 35.119},      // what is too loud counts as +40
        {{{-10, 1'000'000}, {-19.99, 1'000'000}}, -12.5955},
    };
    for (const HistogramRow& row : rows) {
        LoudnessHistogram whole, half, other;
        for (const auto& [lufs, count] : row.blocks)
            for (int i = 0; i < count; ++i) {
                whole.AddBlock(lufs);
                (i % 3 == 0 ? half : other).AddBlock(lufs);
            }
        EXPECT_NEAR(whole.Integrated().value_or(none), row.integrated, 0.006);
        half.Merge(other);
        EXPECT_EQ(half.Integrated(), whole.Integrated()) << row.integrated;
    }
}

struct ChoiceRow {
    const wchar_t* settings;
    double loudness, samplePeak, truePeak; // dB
    double gain;
    bool isLimited = false;
};
const ChoiceRow choiceRows[] = {
    {L"", -18, -3, -2, -5},
    {L"", -30, -9, -8, 7},
    {L"", -30, -5, -4, 3}, // the limit of -1 allows no more
    {L"-over=\"limit\"", -30, -5, -4, 7, true},
    {L"-over=\"limit\"", -30, -9, -8, 7, false},
    {L"-limit=\"OFF\"", -30, -5, -4, 7},
    {L"-loudness=\"-14,5\" -limit=\"-0.3\"", -10, 1, 6, -6.3}, // louder than full scale as it came
    {L"-peak=\"-0.1\"", none, -6, -2, 5.9},
    {L"-peak=\"-0.1\" -limit=\"-1\"", none, -6, -2, 1},
    {L"-peak=\"-3\"", none, 2, 2, -5},
    {L"-gain=\"-2.25\"", none, -6, -2, -2.25},
    {L"-gain=\"+6\" -limit=\"-1\"", none, -6, -2, 1},
    {L"-gain=\"0\" -limit=\"-1\" -over=\"limit\"", none, -6, -0.5, 0, true},
    {L"", none, -6, 3, 0}, // too short for a loudness
    {L"-peak=\"-1\"", none, -INFINITY, -INFINITY, 0},
    {L"-gain=\"20\" -limit=\"-1\"", none, -INFINITY, -INFINITY, 0},
};

TEST(Volume, GainByWhatWasMeasured) {
    for (const ChoiceRow& row : choiceRows) {
        VolumeChoice choice;
        XString error;
        ASSERT_TRUE(choice.Parse(row.settings, error)) << error.Text();
        VolumeMeasure measure = {std::nullopt, DbToFactor(row.samplePeak), DbToFactor(row.truePeak)};
        if (row.loudness != none)
            measure.loudness = row.loudness;
        const VolumePlan plan = choice.Plan(&measure);
        EXPECT_NEAR(plan.gainDb, row.gain, 1e-9) << row.settings;
        EXPECT_EQ(plan.isLimited, row.isLimited) << row.settings;
    }
}

TEST(Volume, RefusesWhatMakesNoSense) {
    for (const wchar_t* settings :
         {L"-gain=\"61\"", L"-gain=\"1.\"", L"-gain=\"1e1\"", L"-gain=\".5\"", L"-gain=\"-\"", L"-peak=\"1\"",
          L"-loudness=\"off\"", L"-limit=\"0.1\"", L"-gain=\"1\" -peak=\"-1\"", L"-over=\"clip\""}) {
        VolumeChoice choice;
        XString error;
        EXPECT_FALSE(choice.Parse(settings, error)) << settings;
        EXPECT_FALSE(error.IsEmpty());
    }
}

// The limiter as an effect, so that it can be fed.
struct LimiterEffect {
    TruePeakLimiter limiter;
    std::vector<float> out;
    double limit = 0.5;
    std::size_t channels = 0;
    bool isOver = false;
    std::int32_t Begin(const wchar_t*, const AudioFormatRecord& format) {
        channels = format.channels;
        limiter.Open(channels, format.frequency, limit);
        return 1;
    }
    bool Give(DspAudioBlock& block) {
        block.output = out.data();
        block.outputFrames = static_cast<std::uint32_t>(out.size() / channels);
        return true;
    }
    bool Pass(DspAudioBlock& block) {
        out.clear();
        limiter.Pass(static_cast<const float*>(block.input), block.inputFrames, out);
        return Give(block);
    }
    bool End(DspAudioBlock& block) {
        out.clear();
        if (!std::exchange(isOver, true))
            limiter.End(out);
        return Give(block);
    }
};

// The highest value at sixteen places between samples, by a sinc under a long cosine window.
double FinePeak(const std::vector<float>& samples, int channels, int channel) {
    constexpr int half = 40, places = 16;
    const int frames = static_cast<int>(samples.size()) / channels;
    double highest = 0;
    for (int place = 0; place < places; ++place) {
        double kernel[2 * half];
        for (int k = 0; k < 2 * half; ++k) {
            const double t = k - half + 1 - static_cast<double>(place) / places;
            const double angle = std::numbers::pi * t;
            kernel[k] =
                (angle == 0 ? 1 : std::sin(angle) / angle) * (0.5 + 0.5 * std::cos(angle / (half + 1)));
        }
        for (int frame = -half; frame < frames + half; ++frame) {
            double sum = 0;
            for (int k = std::max(0, half - 1 - frame); k < 2 * half && frame + k - half + 1 < frames; ++k) {
                const int at = (frame + k - half + 1) * channels + channel;
                sum += kernel[k] * static_cast<double>(samples[static_cast<std::size_t>(at)]);
            }
            highest = std::max(highest, std::abs(sum));
        }
    }
    return highest;
}

TEST(Limiter, NoTruePeakPassesAndTheRestStays) {
    constexpr int frames = 6000, quietFrom = 2500, quietTo = 5000;
    std::mt19937 random(5);
    std::vector<float> source;
    float before = 0; // of the noise: nothing real reaches up to half the rate
    for (int i = 0; i < frames; ++i) {
        const float noise = static_cast<float>(random() % 2000) / 2000.0f - 0.5f;
        const bool isLoud = i < 500 || (i > quietFrom - 300 && i < quietFrom) || i >= quietTo;
        source.push_back((noise + before) * (isLoud ? 1 : 0.1f));
        before = noise;
        // Between its samples this is 3 dB higher than at them.
        source.push_back(std::sin(std::numbers::pi_v<float> / 2 * (static_cast<float>(i) + 0.5f)) *
                         (isLoud ? 0.7f : 0.1f));
    }
    source.front() = -3; // at the very ends, too
    source.back() = 2.5f;
    LimiterEffect whole;
    const std::vector<float> out = Feed(whole, L"", PcmRecord(2, 0, 44100), source, 100000);
    ASSERT_EQ(out.size(), source.size());
    for (const int channel : {0, 1})
        EXPECT_LT(FinePeak(out, 2, channel), 0.5 * DbToFactor(0.1)) << channel;
    EXPECT_GT(FinePeak(out, 2, 1), 0.45);                 // no more than is needed
    for (int i = 2 * 500; i < 2 * (quietFrom - 600); ++i) // pulled down, but never silent
        ASSERT_LE(std::abs(out[static_cast<std::size_t>(i)]), std::abs(source[static_cast<std::size_t>(i)]));
    std::vector<float> calm(2 * 30000, 0.4f);
    calm[2 * 29000] = 0.9f;
    LimiterEffect late;
    const std::vector<float> same = Feed(late, L"", PcmRecord(2, 0, 44100), calm, 333);
    EXPECT_TRUE(std::equal(calm.begin(), calm.begin() + 2 * 28500, same.begin()));
    for (const std::size_t size : {std::size_t{1}, std::size_t{7}, std::size_t{4096}}) {
        LimiterEffect other;
        EXPECT_EQ(Feed(other, L"", PcmRecord(2, 0, 44100), source, size), out) << size;
    }
    for (const std::uint32_t rate : {1000u, 96000u, 192000u})
        for (const std::size_t length : {std::size_t{0}, std::size_t{1}, std::size_t{100}}) {
            LimiterEffect brief;
            EXPECT_EQ(Feed(brief, L"", PcmRecord(1, 0, rate), std::vector<float>(length, 2), 9).size(),
                      length);
        }
}

} // namespace
