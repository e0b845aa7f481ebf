#include "EncoderDriver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

namespace {

struct FlacRow {
    int channels, bits;
    std::uint32_t frequency;
    std::size_t frames;
    std::uint64_t writtenBits;
};

// -verify decodes every frame again and compares it with what went in.
TEST(FlacEncoder, KeepsIntegersAndTellsThem) {
    constexpr FlacRow rows[] = {{2, 16, 44100, 30011, 16}, {1, 8, 22050, 7777, 8},  {2, 24, 96000, 10001, 24},
                                {6, 16, 48000, 5003, 16},  {2, 32, 48000, 999, 32}, {1, 12, 44100, 333, 12},
                                {1, 2, 8000, 100, 8},      {2, 16, 44100, 1, 16},   {2, 16, 44100, 0, 16},
                                {1, 16, 12345, 500, 16}};
    EncoderDriver encoder(L"FLAC");
    ASSERT_NE(encoder.instance, nullptr);
    for (const FlacRow& row : rows) {
        SCOPED_TRACE(row.bits);
        const AudioFormatRecord format = IntegerFormat(row.channels, row.bits, row.frequency);
        ASSERT_TRUE(encoder.Convert(format, TestSignal(format, row.frames), L"-verify"))
            << testing::PrintToString(encoder.LastError());
        ASSERT_EQ(std::memcmp(encoder.bytes.data(), "fLaC", 4), 0);
        const std::uint64_t description = BigAt(encoder.bytes, 18, 8);
        EXPECT_EQ(description >> 44, row.frequency);
        EXPECT_EQ((description >> 41 & 7) + 1, static_cast<std::uint64_t>(row.channels));
        EXPECT_EQ((description >> 36 & 31) + 1, row.writtenBits);
        EXPECT_EQ(description & 0xFFFFFFFFF, row.frames);
        EXPECT_EQ(BigAt(encoder.bytes, 26, 8) != 0, true); // the checksum of the audio
    }
}

TEST(FlacEncoder, RoundsFloatsTo24BitsAndLossySourcesTo16) {
    EncoderDriver encoder(L"FLAC");
    AudioFormatRecord format = FloatFormat(2, 48000);
    ASSERT_TRUE(encoder.Convert(format, TestSignal(format, 5000), L"-verify -level=\"8\""));
    EXPECT_EQ((BigAt(encoder.bytes, 18, 8) >> 36 & 31) + 1, 24u);
    format.flags = 0;
    ASSERT_TRUE(encoder.Convert(format, TestSignal(format, 5000)));
    EXPECT_EQ((BigAt(encoder.bytes, 18, 8) >> 36 & 31) + 1, 16u);
}

TEST(FlacEncoder, RefusesWhatTheFormatCannotHold) {
    EncoderDriver encoder(L"FLAC");
    const AudioFormatRecord wide = IntegerFormat(9, 16, 48000);
    EXPECT_FALSE(encoder.Convert(wide, TestSignal(wide, 10)));
    EXPECT_GT(encoder.LastError().Find(L"up to 8 channels, and the source has 9"), 0);
    const AudioFormatRecord fast = IntegerFormat(2, 16, 2000000);
    EXPECT_FALSE(encoder.Convert(fast, TestSignal(fast, 10)));
    EXPECT_GT(encoder.LastError().Find(L"2000000"), 0);
}

// A source that announces 100 seconds and delivers less: no point of the table leads past the end.
TEST(FlacEncoder, SeekTableHoldsOnlyWhatCame) {
    EncoderDriver encoder(L"FLAC");
    AudioFormatRecord format = IntegerFormat(1, 16, 8000);
    format.frameCount = 800000;
    constexpr std::size_t came = 200000;
    ASSERT_TRUE(encoder.Convert(format, TestSignal(format, came)));
    EXPECT_EQ(encoder.bytes[42] & 0x7F, 3);
    const std::size_t points = static_cast<std::size_t>(BigAt(encoder.bytes, 43, 3)) / 18;
    EXPECT_EQ(points, 10u);
    int filled = 0;
    for (std::size_t i = 0; i < points; ++i) {
        const std::uint64_t sample = BigAt(encoder.bytes, 46 + i * 18, 8);
        if (sample != ~std::uint64_t(0)) {
            EXPECT_LT(sample, came);
            EXPECT_NE(BigAt(encoder.bytes, 46 + i * 18 + 16, 2), 0u);
            ++filled;
        }
    }
    EXPECT_EQ(filled, 3); // at 0, 10 and 20 seconds
}

TEST(FlacEncoder, WritesEachValueAndThePicture) {
    EncoderDriver encoder(L"FLAC");
    XTagList tags;
    tags.Add(L"artist", L"Erste\rZw\u00e9ite");
    tags.Add(L"track", L"3/12");
    tags.Add(L"own key", L"x");
    tags.Add(L"b=d", L"left out");
    ASSERT_TRUE(tags.Add(L"picture", L"1;image/png;d")->blob.Set("pngbytes", 8));
    AudioFormatRecord format = IntegerFormat(4, 16, 44100);
    format.channelMask = 0x107; // three in front, one behind: not what FLAC assumes
    ASSERT_TRUE(encoder.Convert(format, TestSignal(format, 100), L"", &tags));
    const std::string file(encoder.bytes.begin(), encoder.bytes.end());
    for (const char* text : {"ARTIST=Erste", "ARTIST=Zw\xC3\xA9ite", "TRACKNUMBER=3", "TRACKTOTAL=12",
                             "OWN KEY=x", "WAVEFORMATEXTENSIBLE_CHANNEL_MASK=0x107", "image/png", "pngbytes"})
        EXPECT_NE(file.find(text), std::string::npos) << text;
    EXPECT_EQ(file.find("left out"), std::string::npos);
}

} // namespace
