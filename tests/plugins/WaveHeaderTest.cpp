#include "plugins/encoder/WaveHeader.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

std::uint64_t NumberAt(const ByteVector& bytes, std::size_t at, std::size_t count) {
    std::uint64_t value = 0;
    if (at + count > bytes.size())
        return ~value;
    for (std::size_t i = count; i > 0; --i)
        value = value << 8 | bytes[at + i - 1];
    return value;
}
bool HasId(const ByteVector& bytes, std::size_t at, const char* id) {
    return at + 4 <= bytes.size() && std::memcmp(bytes.data() + at, id, 4) == 0;
}

TEST(WaveHeader, TellsTheSizes) {
    const PcmLayout layout;
    const ByteVector header = BuildWaveHeader(layout, 4000, 5000);
    ASSERT_EQ(header.size(), 80u);
    EXPECT_TRUE(HasId(header, 0, "RIFF") && HasId(header, 8, "WAVE") && HasId(header, 12, "JUNK"));
    EXPECT_EQ(NumberAt(header, 4, 4), 4992u);
    EXPECT_TRUE(HasId(header, 48, "fmt ") && HasId(header, 72, "data"));
    EXPECT_EQ(NumberAt(header, 56, 2), 1u);
    EXPECT_EQ(NumberAt(header, 64, 4), 176400u);
    EXPECT_EQ(NumberAt(header, 68, 2), 4u);
    EXPECT_EQ(NumberAt(header, 76, 4), 4000u);
}

// Above 4 GB the same places hold the 64-bit sizes, and the 32-bit ones say so.
TEST(WaveHeader, BecomesRf64) {
    const PcmLayout layout;
    constexpr std::uint64_t limit = 0xFFFFFFFE;
    EXPECT_TRUE(HasId(BuildWaveHeader(layout, limit - 72, limit + 8), 0, "RIFF"));
    constexpr std::uint64_t data = 5'000'000'000, file = data + 80;
    const ByteVector header = BuildWaveHeader(layout, data, file);
    ASSERT_EQ(header.size(), 80u);
    EXPECT_TRUE(HasId(header, 0, "RF64") && HasId(header, 12, "ds64"));
    EXPECT_EQ(NumberAt(header, 4, 4), 0xFFFFFFFFu);
    EXPECT_EQ(NumberAt(header, 20, 8), file - 8);
    EXPECT_EQ(NumberAt(header, 28, 8), data);
    EXPECT_EQ(NumberAt(header, 36, 8), data / 4);
    EXPECT_EQ(NumberAt(header, 76, 4), 0xFFFFFFFFu);
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
        EXPECT_EQ(NumberAt(header, 56, 2), row.extensible ? 0xFFFEu : 1u) << row.bytes << "x" << row.channels;
        EXPECT_EQ(NumberAt(header, 52, 4), row.extensible ? 40u : 16u);
        if (!row.extensible)
            continue;
        EXPECT_EQ(NumberAt(header, 74, 2), static_cast<unsigned>(row.bytes) * 8);
        EXPECT_EQ(NumberAt(header, 76, 4), 0x3Fu);
        EXPECT_EQ(NumberAt(header, 80, 2), row.isFloat ? 3u : 1u);
        EXPECT_EQ(HasId(header, 96, "fact"), row.isFloat);
    }
}

TEST(WaveHeader, InfoHoldsEvenChunks) {
    XTagList tags;
    tags.Add(L"title", L"ab");
    tags.Add(L"artist", L"x\ry");
    tags.Add(L"own key", L"left out");
    const ByteVector info = BuildInfoChunk(tags);
    const char expected[] = "LIST\x1e\0\0\0INFOINAM\3\0\0\0ab\0\0IART\5\0\0\0x; y\0";
    EXPECT_EQ(std::string(info.begin(), info.end()), std::string(expected, sizeof expected));
    EXPECT_TRUE(BuildInfoChunk(XTagList()).empty());
}

} // namespace
