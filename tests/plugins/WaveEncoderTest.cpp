#include "EncoderDriver.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

// The place and size of a chunk's content; walks the file as a reader does.
bool FindChunk(const std::vector<unsigned char>& file, const char* id, std::size_t& at, std::size_t& size) {
    for (at = 12; at + 8 <= file.size(); at += 8 + size + size % 2) {
        size = static_cast<std::size_t>(LittleAt(file, at + 4, 4));
        if (std::memcmp(file.data() + at, id, 4) == 0) {
            at += 8;
            return at + size <= file.size();
        }
    }
    return false;
}

struct WaveRow {
    int channels, bits;
    std::uint32_t frequency;
    std::size_t frames;
};

constexpr WaveRow rows[] = {{2, 16, 44100, 30011}, {1, 8, 22050, 7777}, {2, 24, 96000, 10001},
                            {6, 16, 48000, 5003},  {2, 32, 48000, 999}, {1, 24, 8000, 1},
                            {2, 16, 44100, 0},     {1, 12, 44100, 333}};

TEST(WaveEncoder, KeepsIntegersBitByBit) {
    EncoderDriver encoder(L"Wave");
    ASSERT_NE(encoder.instance, nullptr);
    for (const WaveRow& row : rows) {
        SCOPED_TRACE(row.bits);
        const AudioFormatRecord format = IntegerFormat(row.channels, row.bits, row.frequency);
        const std::vector<std::int32_t> samples = TestSignal(format, row.frames);
        ASSERT_TRUE(encoder.Convert(format, samples));
        EXPECT_EQ(LittleAt(encoder.bytes, 4, 4), encoder.bytes.size() - 8);
        std::size_t at = 0, size = 0;
        ASSERT_TRUE(FindChunk(encoder.bytes, "data", at, size));
        const int width = (row.bits + 7) / 8;
        ASSERT_EQ(size, samples.size() * static_cast<std::size_t>(width));
        for (std::size_t i = 0; i < samples.size(); ++i) {
            std::int64_t expected = std::int64_t(samples[i]) << (width * 8 - row.bits);
            if (width == 1)
                expected += 128;
            const std::uint64_t mask = (std::uint64_t(1) << (width * 8)) - 1;
            ASSERT_EQ(LittleAt(encoder.bytes, at + i * static_cast<std::size_t>(width), width),
                      static_cast<std::uint64_t>(expected) & mask)
                << i;
        }
        EXPECT_EQ(encoder.bytes.size(), at + size + size % 2);
    }
}

TEST(WaveEncoder, KeepsFloatsUnlessTheyComeFromALossyCoding) {
    EncoderDriver encoder(L"Wave");
    AudioFormatRecord format = FloatFormat(2, 48000);
    const std::vector<std::int32_t> samples = TestSignal(format, 4001);
    ASSERT_TRUE(encoder.Convert(format, samples));
    std::size_t at = 0, size = 0;
    ASSERT_TRUE(FindChunk(encoder.bytes, "data", at, size));
    ASSERT_EQ(size, samples.size() * 4);
    EXPECT_EQ(std::memcmp(encoder.bytes.data() + at, samples.data(), size), 0);
    format.flags = 0;
    ASSERT_TRUE(encoder.Convert(format, samples));
    ASSERT_TRUE(FindChunk(encoder.bytes, "data", at, size));
    EXPECT_EQ(size, samples.size() * 2);
}

struct ChangeRow {
    const wchar_t* settings;
    std::uint64_t channels, frequency, bits;
    std::size_t frames; // of 10000 at 48000 Hz
};

TEST(WaveEncoder, ChangesWhatItsSettingsSay) {
    EncoderDriver encoder(L"Wave");
    constexpr ChangeRow changes[] = {
        {L"-format=\"24\"", 2, 48000, 24, 10000},
        {L"-format=\"float\"", 2, 48000, 32, 10000},
        {L"-format=\"8\"", 2, 48000, 8, 10000},
#ifdef TM_HAS_CODECS
        {L"-rate=\"44100\"", 2, 44100, 16, 9188}, // 9187.5
        {L"-rate=\"96000\" -channels=\"1\"", 1, 96000, 16, 20000},
        {L"-channels=\"6\"", 6, 48000, 16, 10000},
#endif
    };
    const AudioFormatRecord format = IntegerFormat(2, 16, 48000);
    for (const ChangeRow& row : changes) {
        SCOPED_TRACE(testing::PrintToString(XString(row.settings)));
        ASSERT_TRUE(encoder.Convert(format, TestSignal(format, 10000), row.settings));
        std::size_t at = 0, size = 0;
        ASSERT_TRUE(FindChunk(encoder.bytes, "fmt ", at, size));
        EXPECT_EQ(LittleAt(encoder.bytes, at + 2, 2), row.channels);
        EXPECT_EQ(LittleAt(encoder.bytes, at + 4, 4), row.frequency);
        EXPECT_EQ(LittleAt(encoder.bytes, at + 14, 2), row.bits);
        ASSERT_TRUE(FindChunk(encoder.bytes, "data", at, size));
        EXPECT_EQ(size, row.frames * row.channels * row.bits / 8);
    }
}

TEST(WaveEncoder, WritesTagsBehindTheSamples) {
    EncoderDriver encoder(L"Wave");
    XTagList tags;
    tags.Add(L"title", L"Caf\u00e9");
    const AudioFormatRecord format = IntegerFormat(1, 8, 8000);
    ASSERT_TRUE(encoder.Convert(format, TestSignal(format, 11), L"", &tags)); // an odd number of bytes
    std::size_t at = 0, size = 0;
    ASSERT_TRUE(FindChunk(encoder.bytes, "LIST", at, size));
    EXPECT_EQ(std::memcmp(encoder.bytes.data() + at, "INFOINAM\6\0\0\0Caf\xC3\xA9", 17), 0);
    ASSERT_TRUE(FindChunk(encoder.bytes, "id3 ", at, size));
    EXPECT_EQ(std::memcmp(encoder.bytes.data() + at, "ID3\4", 4), 0);
}

} // namespace
