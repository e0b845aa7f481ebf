// The portable parts of the effect ReplayGain: texts, measures from other processes, edited files.
#include "plugins/dsp/GainMeasure.h"
#include "plugins/dsp/PieceFile.h"
#include "plugins/dsp/ReplayGainTags.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>

namespace {

struct GainRow {
    double decibels;
    const wchar_t *text, *opus;
};
constexpr GainRow gainRows[] = {
    {-7.0349, L"-7.03 dB", L"-3081"}, {0, L"0.00 dB", L"-1280"},      {-0.004, L"0.00 dB", L"-1281"},
    {12.999, L"13.00 dB", L"2048"},   {-0.09, L"-0.09 dB", L"-1303"},
};

TEST(ReplayGain, GainsAsTexts) {
    for (const GainRow& row : gainRows) {
        EXPECT_EQ(GainText(row.decibels), XString(row.text));
        EXPECT_EQ(OpusGainText(row.decibels), XString(row.opus)) << row.decibels;
    }
    EXPECT_EQ(PeakText(0.98855340), XString(L"0.988553"));
}

TEST(ReplayGain, TheTracksGainReplacesAllEarlierOnes) {
    for (const bool isSilent : {false, true}) {
        XTagList tags;
        for (const wchar_t* key : {L"title", L"ReplayGain_Track_Gain", L"REPLAYGAIN_ALBUM_GAIN",
                                   L"replaygain_album_peak", L"R128_ALBUM_GAIN", L"r128_track_gain"})
            tags.Add(key, L"old");
        LoudnessHistogram histogram;
        if (!isSilent)
            histogram.AddBlock(-10.005);
        PutTrackGain(tags, GainOf(histogram), 1.5);
        EXPECT_EQ(tags.Count(), isSilent ? 1 : 3);
        EXPECT_EQ(tags.Get(L"title"), XString(L"old"));
        EXPECT_EQ(tags.Get(trackGainKey), XString(isSilent ? L"" : L"-8.00 dB"));
        EXPECT_EQ(tags.Get(trackPeakKey), XString(isSilent ? L"" : L"1.500000"));
    }
}

struct AlbumRow {
    AlbumMode mode;
    const wchar_t *album, *artist, *path; // of one output
    const wchar_t *album2, *artist2, *path2;
    bool isOne;
};
constexpr AlbumRow albumRows[] = {
    {albumByTags, L"A", L"x", L"C:\\1\\a", L"a", L"X", L"C:\\2\\b", true},
    {albumByTags, L"A", L"x", L"C:\\1\\a", L"A", L"y", L"C:\\1\\b", false},
    {albumByTags, L"A", L"", L"C:\\1\\a", L"A", L"", L"c:\\1\\b", true},
    {albumByTags, L"A", L"", L"C:\\1\\a", L"A", L"", L"C:\\2\\b", false},
    {albumByTags, L"", L"x", L"C:\\1\\a", L"", L"x", L"C:\\1\\b", false}, // on no album
    {albumByFolder, L"A", L"x", L"C:\\1\\a", L"B", L"y", L"C:\\1\\b", true},
    {albumByFolder, L"A", L"x", L"C:\\1\\a", L"A", L"x", L"C:\\1\\2\\b", false},
    {albumOfBatch, L"A", L"x", L"C:\\1\\a", L"", L"", L"D:\\b", true},
    {albumOff, L"A", L"x", L"C:\\1\\a", L"A", L"x", L"C:\\1\\a", false},
};

XString KeyOf(AlbumMode mode, const wchar_t* album, const wchar_t* artist, const wchar_t* path) {
    XTagList tags;
    tags.Add(L"album", album);
    tags.Add(L"album artist", artist);
    return AlbumKey(mode, tags, path);
}

TEST(ReplayGain, WhatIsOneAlbum) {
    for (const AlbumRow& row : albumRows) {
        const XString one = KeyOf(row.mode, row.album, row.artist, row.path);
        EXPECT_EQ(!one.IsEmpty() && one == KeyOf(row.mode, row.album2, row.artist2, row.path2), row.isOne)
            << &row - albumRows;
    }
}

TEST(ReplayGain, AMeasureComesBackWholeOrNotAtAll) {
    GainMeasure measure = {L"C:\\\u00fc \u4e2d.flac", L"album\nartist", 0.75, {}};
    measure.histogram.AddBlocks(0, 3);
    measure.histogram.AddBlocks(LoudnessHistogram::binCount - 1, 1ULL << 33);
    ByteVector image = WriteGainMeasure(measure);
    GainMeasure read;
    ASSERT_TRUE(ReadGainMeasure(image.data(), image.size(), read));
    EXPECT_EQ(read.output, measure.output);
    EXPECT_EQ(read.album, measure.album);
    EXPECT_EQ(read.peak, 0.75);
    EXPECT_EQ(read.histogram.Blocks(0), 3u);
    EXPECT_EQ(read.histogram.Blocks(LoudnessHistogram::binCount - 1), 1ULL << 33);
    for (std::size_t size = 0; size < image.size(); ++size) {
        const ByteVector cut(image.begin(), image.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_FALSE(ReadGainMeasure(cut.data(), cut.size(), read)) << size;
    }
    // Whatever stands in a byte, nothing but a refusal or another measure comes of it.
    for (unsigned char& byte : image) {
        const unsigned char before = byte;
        byte ^= 0xFF;
        (void)ReadGainMeasure(image.data(), image.size(), read);
        byte = before;
    }
    image.push_back(0);
    EXPECT_FALSE(ReadGainMeasure(image.data(), image.size(), read));
}

std::string ContentOf(PieceFile& file) {
    std::string content(static_cast<std::size_t>(file.Size()) + 9, '?');
    content.resize(file.Read(0, reinterpret_cast<unsigned char*>(content.data()), content.size()));
    return content;
}

TEST(PieceFile, IsWhatAPlainCopyWouldBe) {
    std::mt19937 random(1);
    const auto below = [&](std::size_t limit) { return static_cast<std::size_t>(random() % limit); };
    for (int round = 0; round < 300; ++round) {
        std::string original(below(60), ' ');
        for (char& c : original)
            c = static_cast<char>('a' + below(26));
        PieceFile file(
            [&](std::uint64_t offset, unsigned char* bytes, std::size_t count) {
                std::memcpy(bytes, original.data() + offset, count);
                return count;
            },
            original.size());
        std::string plain = original;
        for (int change = 0; change < 8; ++change) {
            const std::size_t at = below(plain.size() + 5), removed = below(20);
            const std::string added(below(12), static_cast<char>('0' + change));
            file.Replace(at, removed, reinterpret_cast<const unsigned char*>(added.data()), added.size());
            if (at > plain.size())
                plain.resize(at, '\0');
            plain.replace(at, removed, added);
            ASSERT_EQ(ContentOf(file), plain) << round;
        }
        unsigned char middle[7];
        const std::size_t from = below(plain.size() + 1);
        const std::size_t count = file.Read(from, middle, sizeof middle);
        EXPECT_EQ(std::string(middle, middle + count), plain.substr(from, sizeof middle));
        ASSERT_TRUE(file.CopyDisplaced());
        EXPECT_EQ(file.DisplacedBytes(), 0u);
        EXPECT_EQ(ContentOf(file), plain);
    }
}

TEST(PieceFile, TellsWhatMovedAndWhatCannotBeRead) {
    PieceFile file([](std::uint64_t, unsigned char*, std::size_t) { return std::size_t{0}; }, 100);
    file.Replace(10, 5, reinterpret_cast<const unsigned char*>("12345"), 5);
    EXPECT_EQ(file.DisplacedBytes(), 0u);
    file.Replace(60, 0, reinterpret_cast<const unsigned char*>("x"), 1);
    EXPECT_EQ(file.DisplacedBytes(), 40u);
    EXPECT_FALSE(file.HasFailed());
    EXPECT_FALSE(file.CopyDisplaced());
    EXPECT_TRUE(file.HasFailed());
}

} // namespace
