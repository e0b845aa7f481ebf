// AIFF and Wave64 through their exports. What all three PCM encoders do alike is tested with Wave.
#include "EncoderDriver.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

struct PcmRow {
    int channels, bits; // 0 bits: float
    std::size_t frames;
};

constexpr PcmRow rows[] = {{2, 16, 3001}, {1, 8, 777}, {1, 24, 1},  {6, 16, 503},
                           {2, 32, 99},   {1, 12, 33}, {2, 0, 101}, {2, 16, 0}};

// The samples that stand from `at` on are those that went in.
void ExpectSamples(const EncoderDriver& encoder, std::size_t at, const PcmRow& row,
                   const std::vector<std::int32_t>& samples, bool isBig) {
    const int width = row.bits == 0 ? 4 : (row.bits + 7) / 8;
    const int shift = row.bits == 0 ? 0 : width * 8 - row.bits;
    const std::uint64_t mask = (std::uint64_t(1) << (width * 8)) - 1;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        std::uint64_t expected = static_cast<std::uint64_t>(std::int64_t(samples[i]) * (1 << shift));
        if (width == 1 && !isBig)
            expected += 128;
        const std::size_t place = at + i * static_cast<std::size_t>(width);
        ASSERT_EQ(isBig ? BigAt(encoder.bytes, place, width) : LittleAt(encoder.bytes, place, width),
                  expected & mask)
            << i;
    }
}

std::size_t PlaceOf(const std::vector<unsigned char>& file, const char* id) {
    const std::string text(file.begin(), file.end());
    const std::size_t at = text.find(id);
    return at == std::string::npos ? file.size() : at;
}

TEST(PcmFiles, HoldTheSamplesAndTheSizes) {
    for (const PcmRow& row : rows) {
        SCOPED_TRACE(row.bits);
        const AudioFormatRecord format =
            row.bits == 0 ? FloatFormat(row.channels, 48000) : IntegerFormat(row.channels, row.bits, 48000);
        const std::vector<std::int32_t> samples = TestSignal(format, row.frames);
        XTagList tags;
        tags.Add(L"title", L"Caf\u00e9");
        EncoderDriver aiff(L"AIFF");
        ASSERT_TRUE(aiff.Convert(format, samples, L"", &tags));
        EXPECT_EQ(BigAt(aiff.bytes, 4, 4), aiff.bytes.size() - 8);
        const std::size_t sound = PlaceOf(aiff.bytes, "SSND");
        ExpectSamples(aiff, sound + 16, row, samples, true);
        const std::size_t behind = sound + 8 + static_cast<std::size_t>(BigAt(aiff.bytes, sound + 4, 4));
        EXPECT_EQ(PlaceOf(aiff.bytes, "ID3 "), behind + behind % 2);

        EncoderDriver wave64(L"Wave64");
        ASSERT_TRUE(wave64.Convert(format, samples, L"", &tags));
        EXPECT_EQ(LittleAt(wave64.bytes, 16, 8), wave64.bytes.size());
        const std::size_t data = PlaceOf(wave64.bytes, "data");
        ExpectSamples(wave64, data + 24, row, samples, false);
        const std::size_t end = data + static_cast<std::size_t>(LittleAt(wave64.bytes, data + 16, 8));
        EXPECT_EQ(wave64.bytes.size(), (end + 7) / 8 * 8);
        const std::size_t name = PlaceOf(wave64.bytes, "INAM"); // behind the list's head, before the samples
        EXPECT_EQ((LittleAt(wave64.bytes, name - 12, 8) + 7) / 8 * 8, data - (name - 28));
    }
}

// An exact length tells in front that a file would be too large; a guess does not count.
TEST(PcmFiles, AiffEndsAt4Gigabytes) {
    EncoderDriver aiff(L"AIFF");
    AudioFormatRecord format = IntegerFormat(2, 16, 44100);
    struct {
        std::uint64_t frames;
        const wchar_t* settings;
        std::uint32_t flags;
        bool isGood;
    } constexpr sizes[] = {
        {0x3FFF0000, L"", ztFormatExactLength, true},
        {0x40000000, L"", ztFormatExactLength, false},
        {0x40000000, L"", 0, true},
        {0x40000000, L"-format=\"8\"", ztFormatExactLength, true},
        {0x30000000, L"-format=\"24\"", ztFormatExactLength, false},
    };
    for (const auto& row : sizes) {
        format.frameCount = row.frames;
        format.flags = ztFormatLossless | row.flags;
        EXPECT_EQ(aiff.Convert(format, TestSignal(format, 10), row.settings), row.isGood) << row.frames;
        const XString expected = row.isGood ? L"" : L"AIFF holds up to 4 GB, and this audio takes more";
        EXPECT_EQ(aiff.LastError(), expected);
    }
    EncoderDriver wave64(L"Wave64");
    format.flags |= ztFormatExactLength;
    EXPECT_TRUE(wave64.Convert(format, TestSignal(format, 10)));
}

} // namespace
