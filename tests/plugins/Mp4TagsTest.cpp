#include "plugins/encoder/Mp4Tags.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string Text(const ByteVector& bytes) {
    return std::string(bytes.begin(), bytes.end());
}

struct ItemRow {
    const wchar_t* key;
    const wchar_t* value;
    std::string id;     // of the item, or its free-form name
    std::string ending; // the end of its bytes
};

TEST(Mp4Tags, NumbersGoWhereTheyFitAndElseUnderAName) {
    using namespace std::string_literals;
    const ItemRow rows[] = {
        {L"track", L"3/12", "trkn", "\0\0\0\3\0\14\0\0"s},
        {L"disc", L"2", "disk", "\0\0\0\2\0\0"s},
        {L"track", L"A1", "TRACKNUMBER", "A1"},
        {L"track", L"3\r4", "TRACKNUMBER", "4"},
        {L"disc", L"70000/2", "DISCNUMBER", "70000/2"},
        {L"bpm", L"120", "tmpo", "\0\x78"s},
        {L"bpm", L"120.5", "BPM", "120.5"},
        {L"compilation", L"yes", "COMPILATION", "yes"},
        {L"Artist", L"\x00E9\rb", "\251ART", "b"},
        {L"publisher", L"x", "LABEL", "x"},
        {L"Own key", L"x", "OWN KEY", "x"},
        {L"REPLAYGAIN_TRACK_GAIN", L"-1 dB", "replaygain_track_gain", "-1 dB"},
    };
    for (const ItemRow& row : rows) {
        XTagList tags;
        tags.Add(row.key, row.value);
        LeftOutTags leftOut;
        const std::string items = Text(BuildMp4Items(tags, leftOut));
        ASSERT_GT(items.size(), 8u) << row.id;
        EXPECT_EQ(static_cast<unsigned char>(items[3]), items.size()) << row.id;
        EXPECT_EQ(items.substr(4, 4), row.id.size() == 4 ? row.id : "----");
        EXPECT_NE(items.find(row.id), std::string::npos) << row.id;
        EXPECT_EQ(items.substr(items.size() - row.ending.size()), row.ending) << row.id;
        EXPECT_TRUE(leftOut.Text(L"M4A").IsEmpty());
    }
}

TEST(Mp4Tags, FrontCoverLeadsAndUnknownPicturesAreTold) {
    XTagList tags;
    ASSERT_TRUE(tags.Add(L"picture", L"4;image/jpeg;")->blob.Set("\xFF\xD8\xFF back", 8));
    ASSERT_TRUE(tags.Add(L"picture", L"3;image/jpeg;")->blob.Set("\x89PNG\r\n\x1A\nfront", 13));
    LeftOutTags leftOut;
    const std::string items = Text(BuildMp4Items(tags, leftOut));
    EXPECT_LT(items.find("front"), items.find("back"));
    EXPECT_TRUE(leftOut.Text(L"M4A").IsEmpty());
    ASSERT_TRUE(tags.Add(L"picture", L"3;image/webp;")->blob.Set("RIFF", 4));
    (void)BuildMp4Items(tags, leftOut);
    EXPECT_EQ(leftOut.Text(L"M4A"), XString(L"M4A can't hold these tags of the source: cover art"));
}

TEST(Mp4Tags, ItemsReplaceThoseOfASoundIndex) {
    ByteWriter moov;
    moov.Big(32, 4);
    moov.Id("moov");
    for (const char* id : {"udta", "mvhd"}) {
        moov.Big(12, 4);
        moov.Id(id);
        moov.Id(id[0] == 'u' ? "old " : "kept");
    }
    ByteVector whole = moov.out;
    ASSERT_TRUE(PutMp4Items(whole, {'n', 'e', 'w'}));
    EXPECT_EQ(whole[3], whole.size());
    EXPECT_EQ(Text(whole).find("old "), std::string::npos);
    EXPECT_NE(Text(whole).find("ilstnew"), std::string::npos);
    for (const std::size_t size : {0u, 7u, 31u}) { // cut short
        ByteVector cut(moov.out.begin(), moov.out.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_FALSE(PutMp4Items(cut, {})) << size;
    }
    for (const unsigned char childSize : {0, 7, 13}) {
        ByteVector wrong = moov.out;
        wrong[23] = childSize;
        EXPECT_FALSE(PutMp4Items(wrong, {})) << int(childSize);
    }
}

} // namespace
