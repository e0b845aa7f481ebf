#include "plugins/common/Id3Tag.h"
#include "plugins/common/TagText.h"

#include <gtest/gtest.h>

#include <cstring>
#include <map>

namespace {

XTagItem* AddPicture(XTagList& tags, const wchar_t* value, const char* bytes, std::size_t count) {
    XTagItem* item = tags.Add(L"picture", value);
    EXPECT_TRUE(item->blob.Set(bytes, count));
    return item;
}

std::size_t SizeAt(const ByteVector& tag, std::size_t at) {
    std::size_t size = 0;
    for (std::size_t i = 0; i < 4; ++i)
        size = size << 7 | (tag[at + i] & 0x7F);
    return size;
}

// The frames of a tag by their names; fails on sizes that do not add up.
std::multimap<std::string, std::string> Frames(const ByteVector& tag, std::size_t padding) {
    std::multimap<std::string, std::string> frames;
    if (tag.size() < 10 || std::memcmp(tag.data(), "ID3\x04\0\0", 6) != 0 ||
        SizeAt(tag, 6) != tag.size() - 10) {
        ADD_FAILURE() << "no tag";
        return frames;
    }
    std::size_t at = 10;
    while (at + 10 <= tag.size() - padding) {
        const std::size_t size = SizeAt(tag, at + 4);
        if (at + 10 + size > tag.size())
            break;
        const char* frame = reinterpret_cast<const char*>(tag.data() + at);
        frames.emplace(std::string(frame, 4), std::string(frame + 10, size));
        at += 10 + size;
    }
    EXPECT_EQ(at + padding, tag.size());
    return frames;
}

TEST(Id3Tag, HoldsTextsOfAllKinds) {
    LeftOutTags leftOut;
    XTagList tags;
    tags.Add(L"Title", L"Plain");
    tags.Add(L"artist", L"Erste\rZwéite");
    tags.Add(L"comment", L"one\rtwo");
    tags.Add(L"replaygain_track_gain", L"-3.21 dB");
    tags.Add(L"empty", L"");
    tags.Add(L"genre", L"\r\r");
    const auto frames = Frames(BuildId3Tag(tags, 100, leftOut), 100);
    ASSERT_EQ(frames.size(), 4u); // nothing empty
    EXPECT_EQ(frames.find("TIT2")->second, std::string("\0Plain", 6));
    EXPECT_EQ(frames.find("TXXX")->second, std::string("\0replaygain_track_gain\0-3.21 dB", 31));
    EXPECT_EQ(frames.find("COMM")->second, std::string("\0eng\0one\ntwo", 12));
    const std::string artist = frames.find("TPE1")->second;
    EXPECT_EQ(artist.substr(0, 5), std::string("\1\xFF\xFE"
                                               "E\0",
                                               5));
    EXPECT_NE(artist.find(std::string("\0\0\xFF\xFEZ\0", 6)), std::string::npos); // the second value
    EXPECT_EQ(artist.size(), 1u + 2 + 5 * 2 + 2 + 2 + 6 * 2);
}

TEST(Id3Tag, HoldsPictures) {
    LeftOutTags leftOut;
    XTagList tags;
    AddPicture(tags, L"3;image/png;Vorn", "bytes\0more", 10);
    AddPicture(tags, L"", "\xFF\xD8\xFF", 3); // a source that tells nothing of it
    const auto frames = Frames(BuildId3Tag(tags, 0, leftOut), 0);
    ASSERT_EQ(frames.count("APIC"), 2u);
    EXPECT_EQ(frames.begin()->second, std::string("\0image/png\0\3Vorn\0bytes\0more", 27));
    EXPECT_EQ(std::next(frames.begin())->second, std::string("\0image/jpeg\0\0\0\xFF\xD8\xFF", 17));
    EXPECT_TRUE(BuildId3Tag(XTagList(), 100, leftOut).empty());
}

TEST(TagText, ReadsWhateverAPictureSays) {
    struct Row {
        const wchar_t* value;
        int type;
        const char* mime;
        const wchar_t* description;
    };
    constexpr Row rows[] = {
        {L"3;image/png;a;b", 3, "image/png", L"a;b"},
        {L"4;image/gif", 4, "image/gif", L""},
        {L"99;;x", 0, "image/bmp", L"x"},
        {L"-1", 0, "image/bmp", L""},
        {L";;", 0, "image/bmp", L""},
        {L"3;b\u00fcld;", 3, "image/bmp", L""},
    };
    for (const Row& row : rows) {
        XTagList tags;
        TagPicture picture;
        ASSERT_TRUE(ReadPicture(*AddPicture(tags, row.value, "BM", 2), picture));
        EXPECT_EQ(picture.type, row.type) << row.value;
        EXPECT_EQ(picture.mime, row.mime);
        EXPECT_EQ(picture.description, XString(row.description));
    }
    XTagList tags;
    TagPicture picture;
    EXPECT_FALSE(ReadPicture(*tags.Add(L"picture", L"3;image/png;"), picture)); // no bytes
}

TEST(TagText, ConvertsAndSplits) {
    EXPECT_EQ(ToUtf8(L"\u00e9\u65e5\xD83D\xDE00\xD800"), "\xC3\xA9\xE6\x97\xA5\xF0\x9F\x98\x80\xEF\xBF\xBD");
    EXPECT_EQ(ToUtf8(L""), "");
    XString number, total;
    SplitTotal(L"3/12", number, total);
    EXPECT_EQ(number + L"|" + total, XString(L"3|12"));
    SplitTotal(L"7", number, total);
    EXPECT_EQ(number + L"|" + total, XString(L"7|"));
    SplitTotal(L"/9", number, total);
    EXPECT_EQ(number + L"|" + total, XString(L"|9"));
}

} // namespace
