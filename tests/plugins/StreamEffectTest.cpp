// Channels, trimming and fades to the sample, whatever the size of the blocks.
#include "StreamFeed.h"

#include "plugins/dsp/ChannelMixer.h"
#include "plugins/dsp/Fader.h"
#include "plugins/dsp/SilenceTrimmer.h"

#include <cmath>
#include <numeric>

namespace {

using Samples = std::vector<std::int32_t>;
using Floats = std::vector<float>;
constexpr std::size_t blockSizes[] = {1, 7, 4096};

struct MixRow {
    ChannelChoice choice;
    std::uint32_t mask;
    std::uint32_t outputMask;
    Floats gains; // before they are scaled
};
const float s = std::sqrt(0.5f);

TEST(Channels, GainsByTheSpeakersPlaces) {
    const MixRow rows[] = {
        {channelsStereo, 0x4, 0x3, {1, 1}},                                             // mono
        {channelsStereo, 0x1, 0x3, {1, 1}},                                             // left alone
        {channelsStereo, 0x3, 0x3, {1, 0, 0, 1}},                                       // stereo
        {channelsStereo, 0x7, 0x3, {1, 0, s, 0, 1, s}},                                 // 3.0
        {channelsStereo, 0x33, 0x3, {1, 0, s, 0, 0, 1, 0, s}},                          // quad
        {channelsStereo, 0x3F, 0x3, {1, 0, s, 0, s, 0, 0, 1, s, 0, 0, s}},              // 5.1, back
        {channelsStereo, 0x60F, 0x3, {1, 0, s, 0, s, 0, 0, 1, s, 0, 0, s}},             // 5.1, side
        {channelsStereo, 0x70F, 0x3, {1, 0, s, 0, .5f, s, 0, 0, 1, s, 0, .5f, 0, s}},   // 6.1
        {channelsStereo, 0x63F, 0x3, {1, 0, s, 0, s, 0, s, 0, 0, 1, s, 0, 0, s, 0, s}}, // 7.1
        {channelsMono, 0x3, 0x4, {.5f, .5f}},
        {channelsMono, 0x3F, 0x4, {1, 1, 2 * s, 0, s, s}},
        {channelsLeft, 0x3, 0x4, {1, 0}},
        {channelsRight, 0x3, 0x4, {0, 1}},
        {channelsRight, 0x63C, 0x4, {0, 0, 0, 0, 0, 1}}, // no front pair: the side stands before the back
        {channelsRight, 0x4, 0x4, {1}},
        {channelsSwap, 0x7, 0x7, {0, 1, 0, 1, 0, 0, 0, 0, 1}},
        {channelsSwap, 0x5, 0x5, {1, 0, 0, 1}}, // left without its right
    };
    for (const MixRow& row : rows) {
        const ChannelMix mix = BuildChannelMix(row.choice, row.mask);
        ASSERT_EQ(mix.gains.size(), row.gains.size()) << row.choice << " of " << row.mask;
        EXPECT_EQ(mix.outputMask, row.outputMask);
        const std::size_t inputs = row.gains.size() / static_cast<std::size_t>(mix.outputs);
        const float sum =
            std::accumulate(row.gains.begin(), row.gains.begin() + static_cast<std::ptrdiff_t>(inputs), 0.0f);
        for (std::size_t i = 0; i < row.gains.size(); ++i)
            EXPECT_NEAR(mix.gains[i], row.gains[i] / sum, 1e-6)
                << row.choice << " of " << row.mask << ": " << i;
    }
}

struct ChannelRow {
    const wchar_t* settings;
    AudioFormatRecord format;
    Samples in, out;
};
const ChannelRow channelRows[] = {
    {L"-to=\"swap\"",
     PcmRecord(2, 32, 8000),
     {1, -2147483647 - 1, 2147483647, 4},
     {-2147483647 - 1, 1, 4, 2147483647}},
    {L"-to=\"Left\"", PcmRecord(2, 16, 8000), {1, 2, 3, 4}, {1, 3}},
    {L"-to=\"right\"", PcmRecord(2, 16, 8000), {1, 2, 3, 4}, {2, 4}},
    {L"", PcmRecord(1, 16, 8000), {5, -6}, {5, 5, -6, -6}},
    {L"", PcmRecord(2, 16, 8000), {5, -6}, {5, -6}},
    {L"-to=\"mono\"", PcmRecord(1, 16, 8000), {5, -6}, {5, -6}},
    {L"-to=\"mono\"",
     PcmRecord(2, 16, 8000),
     {32767, 32767, -32768, -32768, 10, 20, 7, -7},
     {32767, -32768, 15, 0}},
    {L"-to=\"mono\"", PcmRecord(2, 24, 8000), {8388607, 8388607, 3, 5}, {8388607, 4}},
};

TEST(Channels, CopiesAndMixesExactly) {
    for (const ChannelRow& row : channelRows)
        for (const std::size_t size : blockSizes) {
            ChannelMixer effect;
            EXPECT_EQ(Feed(effect, row.settings, row.format, row.in, size), row.out)
                << row.settings << " in blocks of " << size;
        }
}

TEST(Channels, FullScaleDoesNotWrap) {
    ChannelMixer effect;
    const Samples out = Feed(effect, L"", PcmRecord(6, 16, 48000), Samples(6 * 100, 32767), 7);
    ASSERT_EQ(out.size(), 2u * 100);
    for (const std::int32_t sample : out)
        EXPECT_TRUE(sample == 32767 || sample == 32766) << sample; // dithered
}

TEST(Channels, RefusesWhatItCannotKnow) {
    AudioFormatRecord format = PcmRecord(12, 16, 48000);
    ChannelMixer effect;
    EXPECT_EQ(effect.Begin(L"", format), -1);
    EXPECT_GT(effect.error.Find(L"12 channels"), 0);
    format = PcmRecord(2, 16, 48000);
    EXPECT_EQ(effect.Begin(L"-to=\"quad\"", format), -1);
    EXPECT_GT(effect.error.Find(L"quad"), 0);
}

// Silence of `quiet` samples and sound at 1000 Hz: a frame is a millisecond. Written as runs.
struct TrimRow {
    const wchar_t* settings;
    std::vector<int> runs; // silence, sound, silence...
    std::vector<int> kept; // of each run: frames from its start; a first run's are its last
};
constexpr std::int32_t loud = 500, quiet = 32; // 32 of 32768 are -60.2 dB, 33 are above -60
const TrimRow trimRows[] = {
    {L"", {5, 3, 4}, {0, 3, 0}},
    {L"", {0, 3}, {0, 3}},
    {L"", {0}, {0}},
    {L"", {20000, 1, 30000}, {0, 1, 0}},
    {L"", {5, 3, 400, 2, 4}, {0, 3, 400, 2, 0}},
    {L"-at=\"start\"", {5, 3, 4}, {0, 3, 4}},
    {L"-at=\"end\"", {5, 3, 4}, {5, 3, 0}},
    {L"-minimum=\"5\"", {5, 3, 4}, {0, 3, 4}},
    {L"-minimum=\"5\"", {4, 3, 5}, {4, 3, 0}},
    {L"-minimum=\"9\"", {8}, {8}},
    {L"-keep=\"2\"", {5, 3, 4}, {2, 3, 2}},
    {L"-keep=\"2\"", {1, 3, 50, 3, 1}, {1, 3, 50, 3, 1}},
    {L"-keep=\"2\" -minimum=\"5\"", {5, 3, 4}, {2, 3, 4}},
    {L"-keep=\"20\" -minimum=\"3\"", {30000, 3, 30}, {20, 3, 20}},
    {L"-threshold=\"70\"", {5, 3, 4}, {5, 3, 4}},
};

Samples Runs(const std::vector<int>& runs) {
    Samples samples;
    for (std::size_t i = 0; i < runs.size(); ++i)
        for (int n = 0; n < 2 * runs[i]; ++n)
            samples.push_back(i % 2 == 0 ? (n % 2 == 0 ? quiet : -quiet) : n % 2 == 0 ? 0 : -loud);
    return samples;
}

TEST(TrimSilence, CutsToTheFrame) {
    for (const TrimRow& row : trimRows)
        for (const std::size_t size : blockSizes) {
            SilenceTrimmer effect;
            EXPECT_EQ(Feed(effect, row.settings, PcmRecord(2, 16, 1000), Runs(row.runs), size),
                      Runs(row.kept))
                << row.settings << testing::PrintToString(row.runs) << " in blocks of " << size;
            EXPECT_TRUE(effect.error.IsEmpty());
        }
}

TEST(TrimSilence, KnowsSilenceOfEveryKind) {
    SilenceTrimmer effect;
    EXPECT_EQ(Feed(effect, L"", PcmRecord(1, 0, 1000), Floats{0, 0.001f, 0.0011f, 0, NAN, -0.0f}, 2).size(),
              3u);
    SilenceTrimmer wide;
    EXPECT_EQ(Feed(wide, L"-threshold=\"144\"", PcmRecord(1, 32, 1000), Samples{135, -135, 137, 0}, 3),
              Samples{137});
    AudioFormatRecord format = PcmRecord(2, 16, 1000);
    format.frameCount = format.lengthMs = 77;
    format.flags = ztFormatExactLength | ztFormatLossless;
    SilenceTrimmer other;
    EXPECT_EQ(other.Begin(L"", format), 1);
    EXPECT_EQ(format.frameCount + format.lengthMs, 0u);
    EXPECT_EQ(format.flags, ztFormatLossless);
}

TEST(TrimSilence, NothingButSilenceIsAnError) {
    for (const wchar_t* settings : {L"", L"-at=\"start\"", L"-at=\"end\"", L"-keep=\"3\" -minimum=\"8\""}) {
        SilenceTrimmer effect;
        (void)Feed(effect, settings, PcmRecord(2, 16, 1000), Runs({8}), 3);
        EXPECT_GT(effect.error.Find(L"nothing but silence"), 0) << settings;
    }
}

struct FadeRow {
    const wchar_t* settings;
    int frames;
    Floats gains; // in percent
};
const FadeRow fadeRows[] = {
    {L"-in=\"4\" -out=\"0\" -curve=\"linear\"", 6, {0, 25, 50, 75, 100, 100}},
    {L"-in=\"0\" -out=\"4\" -curve=\"linear\"", 6, {100, 100, 75, 50, 25, 0}},
    {L"-in=\"2\" -out=\"4\" -curve=\"linear\"", 4, {0, 25, 25, 0}},
    {L"-in=\"0\" -out=\"50\" -curve=\"linear\"", 5, {80, 60, 40, 20, 0}}, // longer than all
    {L"-in=\"4\" -out=\"0\"", 5, {0, 14.644661f, 50, 85.355339f, 100}},
    {L"-in=\"3\" -out=\"3\" -curve=\"Logarithmic\"", 7, {0, 1, 10, 100, 10, 1, 0}},
    {L"-in=\"0\" -out=\"0\"", 3, {100, 100, 100}},
    {L"", 0, {}},
};

TEST(Fade, ScalesToTheFrame) {
    for (const FadeRow& row : fadeRows)
        for (const std::size_t size : blockSizes) {
            const std::size_t frames = static_cast<std::size_t>(row.frames);
            Fader effect;
            const Floats out =
                Feed(effect, row.settings, PcmRecord(1, 0, 1000), Floats(frames, 100.0f), size);
            ASSERT_EQ(out.size(), frames);
            for (std::size_t i = 0; i < frames; ++i)
                EXPECT_NEAR(out[i], row.gains[i], 1e-4)
                    << row.settings << " at " << i << " in blocks of " << size;
        }
}

TEST(Fade, LeavesTheMiddleAsItIs) {
    Samples source;
    for (int i = 0; i < 2 * 9000; ++i)
        source.push_back((i * 7919) % 65536 - 32768);
    Fader effect;
    const Samples out = Feed(effect, L"-in=\"1000\" -out=\"2000\"", PcmRecord(2, 16, 1000), source, 4096);
    ASSERT_EQ(out.size(), source.size());
    EXPECT_TRUE(std::equal(source.begin() + 2000, source.end() - 4000, out.begin() + 2000));
    EXPECT_LE(std::abs(out.front()), 1);
    EXPECT_LE(std::abs(out.back()), 1);
}

} // namespace
