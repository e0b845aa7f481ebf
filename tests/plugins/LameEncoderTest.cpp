#include "EncoderDriver.h"

#include <gtest/gtest.h>

namespace {

constexpr std::size_t frameLength1 = 1152, frameLength2 = 576; // frames of audio per MPEG frame

struct Mp3 {
    std::uint32_t frequency = 0;
    bool isMono = false;
    std::uint64_t length = 0;
    std::uint64_t listedBytes = 0;
};

std::size_t Id3Bytes(const ByteVector& file) {
    return static_cast<std::size_t>(file[6] << 21 | file[7] << 14 | file[8] << 7 | file[9]) + 10;
}

// Reads the header frame that stands at `at` (the Xing header with LAME's extension).
bool ReadHeader(const ByteVector& file, std::size_t at, Mp3& mp3) {
    const std::uint64_t header = BigAt(file, at, 4);
    if (header >> 21 != 0x7FF)
        return false;
    constexpr std::uint32_t rates[] = {44100, 48000, 32000, 0};
    const std::uint64_t version = header >> 19 & 3;
    const bool isMpeg1 = version == 3;
    mp3.frequency = rates[header >> 10 & 3] >> (version == 3 ? 0 : version == 2 ? 1 : 2);
    mp3.isMono = (header >> 6 & 3) == 3;
    at += 4 + (isMpeg1 ? (mp3.isMono ? 17u : 32u) : (mp3.isMono ? 9u : 17u));
    if (!HasId(file, at, "Xing") && !HasId(file, at, "Info"))
        return false;
    const std::uint64_t cut = BigAt(file, at + 120 + 21, 3), delay = cut >> 12, padding = cut & 0xFFF;
    mp3.length = BigAt(file, at + 8, 4) * (isMpeg1 ? frameLength1 : frameLength2) - delay - padding;
    mp3.listedBytes = BigAt(file, at + 12, 4);
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
    {2, 16, 44100, L"", 0, 44100, false},                // opens all the same: of one frame
};

// In the header frame, which is rewritten at its place behind the tag.
TEST(LameEncoder, TellsTheExactLength) {
    EncoderDriver encoder(L"mp3 (Lame)");
    XTagList tags;
    tags.Add(L"title", L"Caf\u00e9");
    for (const Mp3Row& row : rows)
        for (const XTagList* list : {static_cast<const XTagList*>(nullptr), &std::as_const(tags)}) {
            SCOPED_TRACE(testing::Message() << row.channels << " channels at " << row.frequency);
            const AudioFormatRecord format = FormatOf(row.channels, row.bits, row.frequency);
            ASSERT_TRUE(encoder.Convert(format, TestSignal(format, row.frames), row.settings, list))
                << encoder.LastError().Text();
            EXPECT_EQ(HasId(encoder.bytes, 0, "ID3\4"), list != nullptr);
            const std::size_t tagBytes = list ? Id3Bytes(encoder.bytes) : 0;
            Mp3 mp3;
            ASSERT_TRUE(ReadHeader(encoder.bytes, tagBytes, mp3));
            EXPECT_EQ(mp3.frequency, row.outFrequency);
            EXPECT_EQ(mp3.isMono, row.isMono);
            EXPECT_EQ(mp3.listedBytes, encoder.bytes.size() - tagBytes);
            const std::uint64_t frames = row.frames == 0 ? 1 : row.frames;
            EXPECT_EQ(mp3.length, (frames * row.outFrequency + row.frequency / 2) / row.frequency);
        }
}

} // namespace
