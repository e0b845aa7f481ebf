// Wave, AIFF and Wave64 through their exports: the samples that went in, and sizes that lead around them.
#include "EncoderDriver.h"

#include <gtest/gtest.h>

namespace {

struct FileKind {
    const wchar_t* encoder;
    bool isBig;
    std::size_t sizeAt, sizeBytes, sizeMissing; // of the file's own size
    const char* dataId;
    std::size_t dataHead;  // bytes from the id to the samples
    std::size_t dataExtra; // that the chunk's size counts beside them
    std::size_t alignment;
    const char* behind; // the id of what follows the samples, or none
};
constexpr FileKind kinds[] = {{L"Wave", false, 4, 4, 8, "data", 8, 0, 2, "LIST"},
                              {L"AIFF", true, 4, 4, 8, "SSND", 16, 8, 2, "ID3 "},
                              {L"Wave64", false, 16, 8, 0, "data", 24, 24, 8, ""}};

struct PcmRow {
    int channels, bits; // 0 bits: float
    std::size_t frames;
};
constexpr PcmRow rows[] = {{2, 16, 30011}, {1, 8, 777}, {1, 24, 1},  {6, 16, 503},
                           {2, 32, 99},    {1, 12, 33}, {2, 0, 101}, {2, 16, 0}};

TEST(PcmFiles, HoldTheSamplesAndTheSizes) {
    XTagList tags;
    tags.Add(L"title", L"Caf\u00e9");
    for (const FileKind& kind : kinds)
        for (const PcmRow& row : rows) {
            SCOPED_TRACE(testing::Message() << kind.encoder << row.bits);
            const auto number = kind.isBig ? BigAt : LittleAt;
            const AudioFormatRecord format = FormatOf(row.channels, row.bits, 48000);
            const std::vector<std::int32_t> samples = TestSignal(format, row.frames);
            EncoderDriver encoder(kind.encoder);
            ASSERT_TRUE(encoder.Convert(format, samples, L"", &tags));
            const ByteVector& file = encoder.bytes;
            EXPECT_EQ(number(file, kind.sizeAt, kind.sizeBytes), file.size() - kind.sizeMissing);

            const std::size_t width = row.bits == 0 ? 4 : static_cast<std::size_t>(row.bits + 7) / 8;
            const int shift = row.bits == 0 ? 0 : static_cast<int>(width * 8) - row.bits;
            const std::uint64_t mask = (std::uint64_t{1} << (width * 8)) - 1;
            const std::size_t data = TextOf(file).find(kind.dataId);
            const std::size_t first = data + kind.dataHead, end = first + samples.size() * width;
            EXPECT_EQ(number(file, first - (kind.isBig ? 12 : kind.sizeBytes), kind.sizeBytes),
                      samples.size() * width + kind.dataExtra);
            for (std::size_t i = 0; i < samples.size(); ++i) {
                const std::int64_t sample = std::int64_t{samples[i]} * (1 << shift) +
                                            (width == 1 && !kind.isBig ? 128 : 0); // unsigned
                ASSERT_EQ(number(file, first + i * width, width), static_cast<std::uint64_t>(sample) & mask)
                    << i;
            }
            const std::size_t next = (end + kind.alignment - 1) / kind.alignment * kind.alignment;
            if (*kind.behind) {
                EXPECT_TRUE(HasId(file, next, kind.behind));
                EXPECT_NE(TextOf(file).find("ID3\4"), std::string::npos);
            } else {
                EXPECT_EQ(file.size(), next);
                EXPECT_LT(TextOf(file).find("INAM"), data); // readers find it whatever the length
            }
        }
}

TEST(PcmFiles, FloatsOfALossyCodingGet16Bits) {
    EncoderDriver encoder(L"Wave");
    AudioFormatRecord format = FormatOf(2, 0, 48000);
    format.flags = 0;
    ASSERT_TRUE(encoder.Convert(format, TestSignal(format, 4001)));
    EXPECT_EQ(LittleAt(encoder.bytes, TextOf(encoder.bytes).find("data") + 4, 4), 4001u * 2 * 2);
}

struct ChangeRow {
    const wchar_t* settings;
    std::uint64_t channels, frequency, bits;
    std::size_t frames; // of 10000 at 48000 Hz
};
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

TEST(PcmFiles, ChangeWhatTheirSettingsSay) {
    EncoderDriver encoder(L"Wave");
    const AudioFormatRecord format = PcmRecord(2, 16, 48000);
    for (const ChangeRow& row : changes) {
        SCOPED_TRACE(row.settings);
        ASSERT_TRUE(encoder.Convert(format, TestSignal(format, 10000), row.settings));
        const std::size_t at = TextOf(encoder.bytes).find("fmt ") + 8;
        EXPECT_EQ(LittleAt(encoder.bytes, at + 2, 2), row.channels);
        EXPECT_EQ(LittleAt(encoder.bytes, at + 4, 4), row.frequency);
        EXPECT_EQ(LittleAt(encoder.bytes, at + 8, 4), row.frequency * row.channels * row.bits / 8);
        EXPECT_EQ(LittleAt(encoder.bytes, at + 12, 2), row.channels * row.bits / 8);
        EXPECT_EQ(LittleAt(encoder.bytes, at + 14, 2), row.bits);
        EXPECT_EQ(LittleAt(encoder.bytes, TextOf(encoder.bytes).find("data") + 4, 4),
                  row.frames * row.channels * row.bits / 8);
    }
}

// An exact length tells in front that a file would be too large; a guess does not count.
TEST(PcmFiles, AiffEndsAt4Gigabytes) {
    EncoderDriver aiff(L"AIFF");
    AudioFormatRecord format = PcmRecord(2, 16, 44100);
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
