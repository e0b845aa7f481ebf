// FLAC and WavPack, of odd formats; usual ones are judged end to end by foreign decoders. With -verify
// every frame is decoded again and compared with what went in.
#include "EncoderDriver.h"

#include <gtest/gtest.h>

namespace {

struct LosslessRow {
    int channels, bits; // 0 bits: float
    std::uint32_t frequency;
    std::size_t frames;
};

TEST(FlacEncoder, KeepsIntegersAndTellsThem) {
    constexpr LosslessRow rows[] = {{2, 16, 44100, 30011}, {2, 32, 48000, 999}, {1, 12, 44100, 333},
                                    {1, 2, 8000, 100},     {2, 16, 44100, 0},   {1, 16, 12345, 500}};
    EncoderDriver encoder(L"FLAC");
    for (const LosslessRow& row : rows) {
        SCOPED_TRACE(row.bits);
        const AudioFormatRecord format = PcmRecord(row.channels, row.bits, row.frequency);
        ASSERT_TRUE(encoder.Convert(format, TestSignal(format, row.frames), L"-verify"))
            << encoder.LastError().Text();
        const std::uint64_t description = BigAt(encoder.bytes, 18, 8);
        EXPECT_EQ(description >> 44, row.frequency);
        EXPECT_EQ((description >> 36 & 31) + 1, row.bits == 2 ? 8u : static_cast<unsigned>(row.bits));
        EXPECT_EQ(description & 0xFFFFFFFFF, row.frames);
    }
}

TEST(FlacEncoder, RoundsFloatsTo24BitsAndLossySourcesTo16) {
    EncoderDriver encoder(L"FLAC");
    AudioFormatRecord format = FormatOf(2, 0, 48000);
    ASSERT_TRUE(encoder.Convert(format, TestSignal(format, 5000), L"-verify -level=\"8\""));
    EXPECT_EQ((BigAt(encoder.bytes, 18, 8) >> 36 & 31) + 1, 24u);
    format.flags = 0;
    ASSERT_TRUE(encoder.Convert(format, TestSignal(format, 5000)));
    EXPECT_EQ((BigAt(encoder.bytes, 18, 8) >> 36 & 31) + 1, 16u);
}

// A source that announces 100 seconds and delivers less: no point of the table leads past the end.
TEST(FlacEncoder, SeekTableHoldsOnlyWhatCame) {
    EncoderDriver encoder(L"FLAC");
    AudioFormatRecord format = PcmRecord(1, 16, 8000);
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

TEST(FlacEncoder, TellsPlacesThatFlacDoesNotAssume) {
    EncoderDriver encoder(L"FLAC");
    AudioFormatRecord format = PcmRecord(4, 16, 44100);
    format.channelMask = 0x107; // three in front, one behind
    ASSERT_TRUE(encoder.Convert(format, TestSignal(format, 100)));
    EXPECT_NE(TextOf(encoder.bytes).find("WAVEFORMATEXTENSIBLE_CHANNEL_MASK=0x107"), std::string::npos);
}

TEST(WavPackEncoder, KeepsIntegersAndFloats) {
    constexpr LosslessRow rows[] = {{2, 16, 44100, 30011}, {1, 12, 44100, 333}, {1, 2, 8000, 100},
                                    {2, 16, 12345, 1},     {9, 16, 44100, 50},  {2, 0, 48000, 5000}};
    EncoderDriver encoder(L"WavPack");
    for (const LosslessRow& row : rows)
        for (const std::uint64_t announced :
             {std::uint64_t{0}, std::uint64_t{row.frames}, std::uint64_t{12345}}) {
            SCOPED_TRACE(testing::Message() << row.bits << " bits, announced " << announced);
            AudioFormatRecord format = FormatOf(row.channels, row.bits, row.frequency);
            format.frameCount = announced;
            ASSERT_TRUE(encoder.Convert(format, TestSignal(format, row.frames), L"-verify"))
                << encoder.LastError().Text();
            EXPECT_EQ(LittleAt(encoder.bytes, 12, 4), row.frames);
        }
}

struct RefusalRow {
    const wchar_t* encoder;
    int channels;
    std::uint32_t frequency;
    std::size_t frames;
    const wchar_t* told; // a part
};
constexpr RefusalRow refusals[] = {
    {L"FLAC", 9, 48000, 10, L"up to 8 channels, and the source has 9"},
    {L"FLAC", 2, 2000000, 10, L"2000000"},
    {L"Opus", 9, 48000, 10, L"up to 8 channels, and the source has 9"},
    {L"Ogg Vorbis", 9, 48000, 10, L"up to 8 channels, and the source has 9"},
    {L"WavPack", 2, 44100, 0, L"WavPack can't hold a source without a single sample"},
};

TEST(Encoders, RefuseWhatTheirFormatCannotHold) {
    for (const RefusalRow& row : refusals) {
        EncoderDriver encoder(row.encoder);
        const AudioFormatRecord format = PcmRecord(row.channels, 16, row.frequency);
        EXPECT_FALSE(encoder.Convert(format, TestSignal(format, row.frames)));
        EXPECT_GT(encoder.LastError().Find(row.told), 0) << encoder.LastError().Text();
    }
}

} // namespace
