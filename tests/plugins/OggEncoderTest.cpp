// The lengths that Opus and Ogg Vorbis files tell: granule positions of Ogg's pages (RFC 3533).
#include "EncoderDriver.h"

#include <gtest/gtest.h>

namespace {

// Of the last page, which must say that it is the last.
std::uint64_t LastGranule(const ByteVector& bytes) {
    const std::size_t last = TextOf(bytes).rfind({"OggS\0", 5});
    EXPECT_NE(LittleAt(bytes, last + 5, 1) & 4, 0u);
    return LittleAt(bytes, last + 6, 8);
}

constexpr std::size_t frameCounts[] = {0, 1, 2, 119, 960, 5003, 70001};

// An Opus file counts 48000 a second and starts with frames to skip, which its header tells.
TEST(OpusEncoder, TellsTheExactLength) {
    EncoderDriver encoder(L"Opus");
    for (const std::uint32_t frequency : {48000u, 8000u, 44100u, 12345u, 96000u, 384000u})
        for (const std::size_t frames : frameCounts)
            for (const int channels : {1, 2, 6}) {
                SCOPED_TRACE(testing::Message() << frames << " at " << frequency << ", " << channels);
                const AudioFormatRecord format = PcmRecord(channels, 16, frequency);
                ASSERT_TRUE(encoder.Convert(format, TestSignal(format, frames), L"-complexity=\"0\""))
                    << encoder.LastError().Text();
                const std::uint64_t skipped = LittleAt(encoder.bytes, 38, 2);
                const std::uint64_t wanted = frames == 0 ? 1 : frames; // silence for an empty source
                EXPECT_EQ(LastGranule(encoder.bytes) - skipped, (wanted * 48000 + frequency - 1) / frequency);
            }
}

TEST(VorbisEncoder, TellsTheExactLength) {
    EncoderDriver encoder(L"Ogg Vorbis");
    for (const wchar_t* settings : {L"-quality=\"0\"", L"-abr=\"64\""})
        for (const std::uint32_t frequency :
             {48000u, 8000u, 44100u, 12345u, settings[1] == L'q' ? 192000u : 32000u})
            for (const std::size_t frames : frameCounts)
                for (const int channels : {1, 2, 6}) {
                    SCOPED_TRACE(testing::Message() << frames << " at " << frequency << ", " << channels);
                    const AudioFormatRecord format = PcmRecord(channels, 16, frequency);
                    ASSERT_TRUE(encoder.Convert(format, TestSignal(format, frames), settings))
                        << encoder.LastError().Text();
                    EXPECT_EQ(LastGranule(encoder.bytes), frames);
                }
}

} // namespace
