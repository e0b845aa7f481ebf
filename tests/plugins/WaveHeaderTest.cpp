#include "plugins/encoder/WaveHeader.h"

#include "FileBytes.h"

#include <gtest/gtest.h>

namespace {

// Above 4 GB the same places hold the 64-bit sizes, and the 32-bit ones say so.
TEST(WaveHeader, BecomesRf64) {
    const PcmLayout layout;
    constexpr std::uint64_t limit = 0xFFFFFFFE;
    EXPECT_TRUE(HasId(BuildWaveHeader(layout, limit - 72, limit + 8), 0, "RIFF"));
    constexpr std::uint64_t data = 5'000'000'000, file = data + 80;
    const ByteVector header = BuildWaveHeader(layout, data, file);
    ASSERT_EQ(header.size(), 80u);
    EXPECT_TRUE(HasId(header, 0, "RF64") && HasId(header, 12, "ds64"));
    EXPECT_EQ(LittleAt(header, 4, 4), 0xFFFFFFFFu);
    EXPECT_EQ(LittleAt(header, 20, 8), file - 8);
    EXPECT_EQ(LittleAt(header, 28, 8), data);
    EXPECT_EQ(LittleAt(header, 36, 8), data / 4);
    EXPECT_EQ(LittleAt(header, 76, 4), 0xFFFFFFFFu);
}

TEST(WaveHeader, DescribesLargeSamplesAndManyChannels) {
    struct Row {
        bool isFloat;
        int bytes, channels;
        bool extensible;
    };
    constexpr Row rows[] = {{false, 1, 1, false},
                            {false, 2, 2, false},
                            {false, 3, 2, true},
                            {false, 2, 6, true},
                            {true, 4, 1, true}};
    for (const Row& row : rows) {
        PcmLayout layout;
        layout.isFloat = row.isFloat;
        layout.sampleBytes = row.bytes;
        layout.channels = row.channels;
        layout.channelMask = 0x3F;
        const ByteVector header = BuildWaveHeader(layout, 0, 1000);
        EXPECT_EQ(LittleAt(header, 56, 2), row.extensible ? 0xFFFEu : 1u) << row.bytes << "x" << row.channels;
        EXPECT_EQ(LittleAt(header, 52, 4), row.extensible ? 40u : 16u);
        if (!row.extensible)
            continue;
        EXPECT_EQ(LittleAt(header, 74, 2), static_cast<unsigned>(row.bytes) * 8);
        EXPECT_EQ(LittleAt(header, 76, 4), 0x3Fu);
        EXPECT_EQ(LittleAt(header, 80, 2), row.isFloat ? 3u : 1u);
        EXPECT_EQ(HasId(header, 96, "fact"), row.isFloat);
    }
}

TEST(WaveHeader, InfoHoldsEvenChunks) {
    XTagList tags;
    tags.Add(L"title", L"ab");
    tags.Add(L"artist", L"x\ry");
    tags.Add(L"own key", L"left out");
    const ByteVector info = BuildInfoChunk(tags);
    constexpr char expected[] = "LIST\x1e\0\0\0INFOINAM\3\0\0\0ab\0\0IART\5\0\0\0x; y\0";
    EXPECT_EQ(TextOf(info), std::string_view(expected, sizeof expected));
    EXPECT_TRUE(BuildInfoChunk(XTagList()).empty());
}

} // namespace
