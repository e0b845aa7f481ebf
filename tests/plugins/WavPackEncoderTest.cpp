// -verify decodes every file again and compares it with what went in.
#include "EncoderDriver.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

struct WavPackRow {
    int channels, bits;
    std::uint32_t frequency;
    std::size_t frames;
    const wchar_t* settings;
};

TEST(WavPackEncoder, KeepsIntegersAndFloats) {
    constexpr WavPackRow rows[] = {{2, 16, 44100, 30011, L""},
                                   {1, 8, 22050, 7777, L"-mode=\"fast\""},
                                   {2, 24, 96000, 10001, L"-mode=\"veryhigh\" -extra=\"3\""},
                                   {6, 16, 48000, 5003, L"-mode=\"high\""},
                                   {2, 32, 48000, 999, L""},
                                   {1, 12, 44100, 333, L""},
                                   {1, 2, 8000, 100, L""},
                                   {2, 16, 12345, 1, L""},
                                   {9, 16, 44100, 50, L""},
                                   {2, 0, 48000, 5000, L"-extra=\"1\""}}; // 0 bits: float
    EncoderDriver encoder(L"WavPack");
    ASSERT_NE(encoder.instance, nullptr);
    for (const WavPackRow& row : rows)
        for (const std::uint64_t announced :
             {std::uint64_t(0), std::uint64_t(row.frames), std::uint64_t(12345)}) {
            SCOPED_TRACE(testing::Message() << row.bits << " bits, announced " << announced);
            AudioFormatRecord format = row.bits == 0 ? FloatFormat(row.channels, row.frequency)
                                                     : IntegerFormat(row.channels, row.bits, row.frequency);
            format.frameCount = announced;
            ASSERT_TRUE(
                encoder.Convert(format, TestSignal(format, row.frames), XString(L"-verify ") + row.settings))
                << testing::PrintToString(encoder.LastError());
            ASSERT_EQ(std::memcmp(encoder.bytes.data(), "wvpk", 4), 0);
            EXPECT_EQ(LittleAt(encoder.bytes, 12, 4), row.frames);
        }
}

TEST(WavPackEncoder, RefusesAudioWithoutFrames) {
    EncoderDriver encoder(L"WavPack");
    EXPECT_FALSE(encoder.Convert(IntegerFormat(2, 16, 44100), {}));
    EXPECT_EQ(encoder.LastError(), XString(L"WavPack can't hold a source without a single sample"));
}

} // namespace
