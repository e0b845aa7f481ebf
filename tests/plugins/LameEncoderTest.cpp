#include "EncoderDriver.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

constexpr std::size_t frameLength1 = 1152, frameLength2 = 576; // frames of audio per MPEG frame

struct Mp3 {
    std::uint32_t frequency = 0;
    bool isMono = false;
    bool isMpeg1 = false;
    std::uint64_t frames = 0, delay = 0, padding = 0;
    std::uint64_t listedBytes = 0;

    [[nodiscard]] std::uint64_t Length() const {
        return frames * (isMpeg1 ? frameLength1 : frameLength2) - delay - padding;
    }
};

// Reads the header frame that stands at `at` (the Xing header with LAME's extension).
bool ReadHeader(const std::vector<unsigned char>& file, std::size_t at, Mp3& mp3) {
    const std::uint64_t header = BigAt(file, at, 4);
    if (header >> 21 != 0x7FF)
        return false;
    constexpr std::uint32_t rates[] = {44100, 48000, 32000, 0};
    const std::uint64_t version = header >> 19 & 3;
    mp3.isMpeg1 = version == 3;
    mp3.frequency = rates[header >> 10 & 3] >> (version == 3 ? 0 : version == 2 ? 1 : 2);
    mp3.isMono = (header >> 6 & 3) == 3;
    at += 4 + (mp3.isMpeg1 ? (mp3.isMono ? 17u : 32u) : (mp3.isMono ? 9u : 17u));
    if (std::memcmp(file.data() + at, "Xing", 4) != 0 && std::memcmp(file.data() + at, "Info", 4) != 0)
        return false;
    mp3.frames = BigAt(file, at + 8, 4);
    mp3.listedBytes = BigAt(file, at + 12, 4);
    const std::uint64_t cut = BigAt(file, at + 120 + 21, 3);
    mp3.delay = cut >> 12;
    mp3.padding = cut & 0xFFF;
    return true;
}

struct Mp3Row {
    int channels, bits; // 0 bits: float
    std::uint32_t frequency;
    const wchar_t* settings;
    std::size_t frames;
    std::uint32_t outFrequency;
    bool isMono;
};

constexpr Mp3Row rows[] = {
    {2, 16, 44100, L"", 30011, 44100, false},
    {2, 16, 44100, L"-cbr=\"128\" -mode=\"stereo\"", 1, 44100, false},
    {1, 8, 22050, L"", 7777, 22050, true},
    {2, 24, 96000, L"-vbr=\"0\"", 20000, 48000, false},
    {2, 24, 88200, L"", 20000, 44100, false},
    {6, 16, 48000, L"-abr=\"160\"", 5003, 48000, false},
    {2, 0, 48000, L"-mode=\"mono\"", 4001, 48000, true},
    {2, 16, 44100, L"-cbr=\"32\"", 44100, 16000, false}, // no room for the header in such frames
    {2, 16, 44100, L"-cbr=\"48\"", 44100, 22050, false},
    {1, 16, 44100, L"-cbr=\"40\"", 44100, 24000, true},
    {2, 16, 44100, L"-cbr=\"64\"", 44100, 24000, false}, // LAME's choice at so few bits
};

TEST(LameEncoder, TellsTheExactLength) {
    EncoderDriver encoder(L"mp3 (Lame)");
    ASSERT_NE(encoder.instance, nullptr);
    for (const Mp3Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.channels << " channels at " << row.frequency);
        const AudioFormatRecord format = row.bits ? IntegerFormat(row.channels, row.bits, row.frequency)
                                                  : FloatFormat(row.channels, row.frequency);
        ASSERT_TRUE(encoder.Convert(format, TestSignal(format, row.frames), row.settings))
            << testing::PrintToString(encoder.LastError());
        Mp3 mp3;
        ASSERT_TRUE(ReadHeader(encoder.bytes, 0, mp3));
        EXPECT_EQ(mp3.frequency, row.outFrequency);
        EXPECT_EQ(mp3.isMono, row.isMono);
        EXPECT_EQ(mp3.listedBytes, encoder.bytes.size());
        EXPECT_EQ(mp3.Length(),
                  (std::uint64_t(row.frames) * row.outFrequency + row.frequency / 2) / row.frequency);
    }
}

TEST(LameEncoder, WritesTheTagInFront) {
    EncoderDriver encoder(L"mp3 (Lame)");
    XTagList tags;
    tags.Add(L"title", L"Caf\u00e9");
    ASSERT_TRUE(tags.Add(L"picture", L"3;image/png;d")->blob.Set("pngbytes", 8));
    const AudioFormatRecord format = IntegerFormat(2, 16, 44100);
    ASSERT_TRUE(encoder.Convert(format, TestSignal(format, 5000), L"", &tags));
    ASSERT_EQ(std::memcmp(encoder.bytes.data(), "ID3\4", 4), 0);
    const std::uint64_t size = BigAt(encoder.bytes, 6, 4);
    const std::size_t behind = static_cast<std::size_t>((size >> 24 << 21) + ((size >> 16 & 127) << 14) +
                                                        ((size >> 8 & 127) << 7) + (size & 127) + 10);
    Mp3 mp3;
    ASSERT_TRUE(ReadHeader(encoder.bytes, behind, mp3)); // the header frame, rewritten at its place
    EXPECT_EQ(mp3.Length(), 5000u);
}

TEST(LameEncoder, SourcesWithoutFramesGiveAFileThatOpens) {
    EncoderDriver encoder(L"mp3 (Lame)");
    const AudioFormatRecord format = IntegerFormat(2, 16, 44100);
    ASSERT_TRUE(encoder.Convert(format, {}));
    Mp3 mp3;
    ASSERT_TRUE(ReadHeader(encoder.bytes, 0, mp3));
    EXPECT_EQ(mp3.Length(), 1u);
}

} // namespace
