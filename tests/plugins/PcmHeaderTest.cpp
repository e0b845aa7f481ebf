// The headers of AIFF and Wave64, field by field.
#include "plugins/encoder/AiffHeader.h"
#include "plugins/encoder/Wave64Header.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

std::uint64_t Big(const ByteVector& bytes, std::size_t at, std::size_t count) {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < count; ++i)
        value = value << 8 | (at + i < bytes.size() ? bytes[at + i] : 0xEE);
    return value;
}

std::uint64_t Little(const ByteVector& bytes, std::size_t at, std::size_t count) {
    std::uint64_t value = 0;
    for (std::size_t i = count; i > 0; --i)
        value = value << 8 | (at + i <= bytes.size() ? bytes[at + i - 1] : 0xEE);
    return value;
}

std::string IdAt(const ByteVector& bytes, std::size_t at) {
    return at + 4 <= bytes.size() ? std::string(bytes.begin() + static_cast<std::ptrdiff_t>(at),
                                                bytes.begin() + static_cast<std::ptrdiff_t>(at) + 4)
                                  : std::string();
}

PcmLayout Layout(bool isFloat, int bytes, int channels, std::uint32_t frequency, std::uint32_t mask = 0) {
    return {isFloat, bytes, channels, frequency, mask};
}

TEST(AiffHeader, TellsRatesAsExtendedFloats) {
    struct Row {
        std::uint32_t frequency;
        std::uint64_t exponent, mantissa;
    };
    constexpr Row rows[] = {{44100, 0x400E, 0xAC44000000000000},
                            {8000, 0x400B, 0xFA00000000000000},
                            {192000, 0x4010, 0xBB80000000000000},
                            {1, 0x3FFF, 0x8000000000000000},
                            {0xFFFFFFFF, 0x401E, 0xFFFFFFFF00000000}};
    for (const Row& row : rows) {
        const ByteVector header = BuildAiffHeader(Layout(false, 2, 2, row.frequency), 0, 0);
        EXPECT_EQ(Big(header, 28, 2), row.exponent) << row.frequency;
        EXPECT_EQ(Big(header, 30, 8), row.mantissa) << row.frequency;
    }
}

TEST(AiffHeader, TellsTheSizes) {
    struct Row {
        PcmLayout layout;
        std::uint64_t data, file;
        const char* form;
        std::size_t headerBytes, samplesAt; // of the chunk in front of the samples
    };
    const Row rows[] = {
        {Layout(false, 2, 2, 44100), 4000, 4054, "AIFF", 54, 38},
        {Layout(false, 3, 1, 8000), 3, 58, "AIFF", 54, 38}, // one frame and its padding
        {Layout(false, 2, 6, 48000, 0x3F), 1200, 1274, "AIFF", 74, 58},
        {Layout(true, 4, 1, 48000), 40, 132, "AIFC", 92, 76},
    };
    for (const Row& row : rows) {
        const ByteVector header = BuildAiffHeader(row.layout, row.data, row.file);
        SCOPED_TRACE(row.file);
        ASSERT_EQ(header.size(), row.headerBytes);
        EXPECT_EQ(BuildAiffHeader(row.layout, 0, 0).size(), row.headerBytes);
        EXPECT_EQ(Big(header, 4, 4), row.file - 8);
        EXPECT_EQ(IdAt(header, 8), row.form);
        const std::size_t common = row.layout.isFloat ? 24 : 12;
        EXPECT_EQ(IdAt(header, common), "COMM");
        EXPECT_EQ(Big(header, common + 8, 2), static_cast<unsigned>(row.layout.channels));
        EXPECT_EQ(Big(header, common + 10, 4), row.data / row.layout.FrameBytes());
        EXPECT_EQ(Big(header, common + 14, 2), static_cast<unsigned>(row.layout.sampleBytes) * 8);
        EXPECT_EQ(IdAt(header, row.samplesAt), "SSND");
        EXPECT_EQ(Big(header, row.samplesAt + 4, 4), row.data + 8);
    }
    EXPECT_EQ(BuildAiffChunk("ID3 ", {1, 2, 3}).size(), 12u);
}

TEST(Wave64Header, CountsItsHeadsAndStandsOnEights) {
    struct Row {
        PcmLayout layout;
        std::uint64_t data;
        std::size_t headerBytes;
    };
    const Row rows[] = {{Layout(false, 2, 2, 44100), 5000000000, 136},
                        {Layout(true, 4, 8, 192000, 0x63F), 32, 160},
                        {Layout(false, 1, 1, 8000), 1, 136}};
    for (const Row& row : rows) {
        const ByteVector header = BuildWave64Header(row.layout, row.data, row.data + 1000);
        SCOPED_TRACE(row.data);
        ASSERT_EQ(header.size(), row.headerBytes);
        EXPECT_EQ(IdAt(header, 0), "riff");
        EXPECT_EQ(Little(header, 16, 8), row.data + 1000);
        EXPECT_EQ(IdAt(header, 40), "fmt ");
        const std::size_t fact = header.size() - 56;
        EXPECT_EQ(Little(header, 56, 8), fact - 40);
        EXPECT_EQ(IdAt(header, fact), "fact");
        EXPECT_EQ(Little(header, fact + 24, 8), row.data / row.layout.FrameBytes());
        EXPECT_EQ(IdAt(header, fact + 32), "data");
        EXPECT_EQ(Little(header, fact + 48, 8), row.data + 24);
    }
}

TEST(Wave64Header, SummaryHoldsWhatItHasNamesForAndTellsTheRest) {
    XTagList tags;
    tags.Add(L"title", L"a\u00e9");
    tags.Add(L"artist", L"x\ry");
    tags.Add(L"lyrics", L"la");
    tags.Add(L"Own Key", L"z");
    tags.Add(L"empty", L"");
    for (int i = 0; i < 2; ++i)
        ASSERT_TRUE(tags.Add(L"picture", L"3;image/png;")->blob.Set("png", 3));
    LeftOutTags leftOut;
    const ByteVector list = BuildWave64Summary(tags, leftOut);
    ASSERT_EQ(list.size(), 64u);
    EXPECT_EQ(Little(list, 16, 8), 24u + 4 + 8 + 6 + 8 + 10);
    EXPECT_EQ(Little(list, 24, 4), 2u);
    EXPECT_EQ(std::memcmp(list.data() + 28, "INAM\6\0\0\0a\0\xE9\0\0\0IART\xA\0\0\0x\0;\0 \0y\0\0\0", 32), 0);
    EXPECT_EQ(leftOut.Text(L"Wave64"),
              XString(L"Wave64 can't hold these tags of the source: lyrics, Own Key, cover art"));
    EXPECT_TRUE(BuildWave64Summary(XTagList(), leftOut).empty());
}

} // namespace
