// What headers of AIFF and Wave64 hold beside the sizes, which PcmFileTest follows.
#include "plugins/encoder/AiffHeader.h"
#include "plugins/encoder/Wave64Header.h"

#include "FileBytes.h"

#include <gtest/gtest.h>

namespace {

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
        EXPECT_EQ(BigAt(header, 28, 2), row.exponent) << row.frequency;
        EXPECT_EQ(BigAt(header, 30, 8), row.mantissa) << row.frequency;
    }
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
        EXPECT_TRUE(HasId(header, 0, "riff"));
        EXPECT_EQ(LittleAt(header, 16, 8), row.data + 1000);
        EXPECT_TRUE(HasId(header, 40, "fmt "));
        const std::size_t fact = header.size() - 56;
        EXPECT_EQ(LittleAt(header, 56, 8), fact - 40);
        EXPECT_TRUE(HasId(header, fact, "fact"));
        EXPECT_EQ(LittleAt(header, fact + 24, 8), row.data / row.layout.FrameBytes());
        EXPECT_TRUE(HasId(header, fact + 32, "data"));
        EXPECT_EQ(LittleAt(header, fact + 48, 8), row.data + 24);
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
    EXPECT_EQ(LittleAt(list, 16, 8), 24u + 4 + 8 + 6 + 8 + 10);
    EXPECT_EQ(LittleAt(list, 24, 4), 2u);
    EXPECT_TRUE(HasId(list, 28, {"INAM\6\0\0\0a\0\xE9\0\0\0IART\xA\0\0\0x\0;\0 \0y\0\0\0", 32}));
    EXPECT_EQ(leftOut.Text(L"Wave64"),
              XString(L"Wave64 can't hold these tags of the source: lyrics, Own Key, cover art"));
    EXPECT_TRUE(BuildWave64Summary(XTagList(), leftOut).empty());
}

} // namespace
