#include "worker/AudioText.h"

#include "tests/support/PcmRecord.h"

#include <gtest/gtest.h>

namespace {

struct DescriptionRow {
    std::uint32_t frequency;
    std::uint16_t channels;
    const wchar_t* expected;
};
constexpr DescriptionRow descriptionRows[] = {
    {44100, 2, L"44.1 kHz stereo"},
    {8000, 1, L"8 kHz mono"},
    {11025, 6, L"11.025 kHz 6 channels"},
    {192000, 2, L"192 kHz stereo"},
};

TEST(AudioText, DescribesRateAndChannels) {
    for (const DescriptionRow& row : descriptionRows)
        EXPECT_EQ(DescribeAudio(PcmRecord(row.channels, 16, row.frequency)), row.expected);
    EXPECT_EQ(InputText(L"C:\\a.b\\x.flac", PcmRecord(2, 16, 44100)), L"Input: FLAC 44.1 kHz stereo");
    EXPECT_EQ(InputText(L"C:\\x", PcmRecord(2, 16, 44100)), L"Input: 44.1 kHz stereo");
    EXPECT_EQ(PlayTimeText(187250), L"3:07.250");
}

TEST(AudioText, AnnouncedFramesDoNotOverflow) {
    AudioFormatRecord format = PcmRecord(2, 16, 44100);
    format.lengthMs = 1500;
    EXPECT_EQ(AnnouncedFrames(format), 66150u);
    format.lengthMs = ~std::uint64_t{0};
    EXPECT_EQ(AnnouncedFrames(format), 0u);
    format.frameCount = 7;
    EXPECT_EQ(AnnouncedFrames(format), 7u);
    EXPECT_EQ(FramesToMs(22050, 44100), 500u);
    EXPECT_EQ(FramesToMs(5, 0), 0u);
}

TEST(AudioText, NonsenseFormatsAreRefused) {
    EXPECT_TRUE(IsUsableFormat(PcmRecord(2, 16, 44100)));
    EXPECT_FALSE(IsUsableFormat(PcmRecord(2, 16, 0)));
    EXPECT_FALSE(IsUsableFormat(PcmRecord(0, 16, 44100)));
    EXPECT_FALSE(IsUsableFormat(PcmRecord(65535, 16, 44100)));
    AudioFormatRecord format = PcmRecord(2, 16, 44100);
    format.sampleBytes = 2;
    EXPECT_FALSE(IsUsableFormat(format));
    format = PcmRecord(2, 16, 44100);
    format.bitsPerSample = 33;
    EXPECT_FALSE(IsUsableFormat(format));
}

struct JudgeRow {
    std::uint32_t flags;
    std::uint32_t frequency; // of the output; what went in has 1000 frames at 1000 Hz
    std::uint64_t frames;
    clLengthVerdict expected;
};
constexpr std::uint32_t exactLossless = ztFormatExactLength | ztFormatLossless;
constexpr JudgeRow judgeRows[] = {
    {exactLossless, 1000, 1000, lengthGood},
    {exactLossless, 1000, 1001, lengthWrong},
    {exactLossless, 1000, 0, lengthWrong},
    {exactLossless, 2000, 2199, lengthGood}, // another rate is lossy enough
    {exactLossless, 2000, 2400, lengthWrong},
    {ztFormatExactLength, 1000, 1100, lengthGood},
    {ztFormatExactLength, 1000, 899, lengthWrong},
    {ztFormatLossless, 1000, 1000, lengthUnproven},
    {0, 1000, 1050, lengthGood},
    {0, 1000, 1200, lengthUnproven},
    {0, 1000, 0, lengthUnproven},
};

TEST(AudioText, JudgesLengths) {
    for (const JudgeRow& row : judgeRows) {
        AudioFormatRecord output = PcmRecord(1, 16, row.frequency);
        output.flags = row.flags;
        output.frameCount = row.frames;
        EXPECT_EQ(JudgeLength(output, 1000, 1000), row.expected)
            << row.flags << ' ' << row.frequency << ' ' << row.frames;
    }
}

} // namespace
