// What encoders foretell of the tags in their files, and the keys by which tags travel.
#include "plugins/common/WrittenTags.h"
#include "plugins/common/TagKeys.h"

#include <gtest/gtest.h>

namespace {

struct Row {
    const wchar_t *key, *value;
    TagValues values;
    const wchar_t *writtenKey, *written; // no key: nothing is foretold
};
constexpr Row rows[] = {
    {L"artist", L"a\rb\ra", TagValues::separate, L"artist", L"a\rb"}, // a decoder gives the same value once
    {L"artist", L"a\rb", TagValues::joined, L"artist", L"a"},
    {L"lyrics", L"a\rb", TagValues::id3, L"lyrics", L"a"},
    {L"artist", L"a\rb", TagValues::id3, L"artist", L"a\rb"},
    {L"genre", L"(17)Rock", TagValues::id3, nullptr, nullptr}, // may become a name, or two
    {L"genre", L"Rock", TagValues::id3, L"genre", L"Rock"},
    {L"DATE", L"1999", TagValues::separate, L"year", L"1999"}, // under its usual key
    {L"encoder", L"x", TagValues::separate, nullptr, nullptr}, // a fact of another file
    {L"track", L"/12", TagValues::separate, nullptr, nullptr},
    {L"track", L"3/12\r4/13", TagValues::separate, L"track", L"3/12\r4/13"},
    {L"track", L"5\r5/12", TagValues::separate, nullptr, nullptr}, // comes back as one
    {L"r128_track_gain", L"-5", TagValues::separate, nullptr, nullptr},
    {L"left", L"out", TagValues::separate, nullptr, nullptr},
};

TEST(WrittenTags, AreForetold) {
    for (const Row& row : rows) {
        XTagList given, written;
        LeftOutTags leftOut;
        leftOut.Add(*given.Add(L"left", L"x"));
        given.Clear();
        given.Add(row.key, row.value);
        ForetellTags(given, leftOut, row.values, written);
        ASSERT_EQ(written.Count(), row.writtenKey ? 1 : 0) << row.key;
        if (row.writtenKey) {
            EXPECT_EQ(written.Get(row.writtenKey), XString(row.written));
        }
    }
}

TEST(WrittenTags, PicturesAreCountedUnlessOneMayBePassedOver) {
    const auto count = [](std::initializer_list<const char*> pictures, int leftOut) {
        XTagList given, written;
        LeftOutTags out;
        for (const char* bytes : pictures) {
            XTagItem* item = given.Add(L"picture", L"3;;");
            EXPECT_TRUE(item->blob.Set(bytes, 8));
            if (leftOut-- > 0)
                out.Add(*item);
        }
        ForetellTags(given, out, TagValues::separate, written);
        return written.Count();
    };
    constexpr const char *png = "\x89PNG\r\n\x1a\n", *jpeg = "\xFF\xD8\xFF-----", *gif = "GIF89a..";
    EXPECT_EQ(count({png, jpeg}, 0), 2);
    EXPECT_EQ(count({png, jpeg, png}, 2), 1);
    EXPECT_EQ(count({png, gif}, 0), 0);
}

TEST(TagKeys, ValuesAreTextThatEveryKindOfTagHolds) {
    XTagList tags;
    AddTag(tags, L"artist", L"a\xD800");
    AddTag(tags, L"artist", L"a\xDC00z\xFFFF\xD83D\xDE00");
    AddTag(tags, L"artist", L"a\xFFFD"); // the first once more
    AddTag(tags, L"title", L"\xFEFF");
    AddTag(tags, L"MusicBrainz Album Type", L"live");
    AddTag(tags, L"MUSICBRAINZ_ALBUMTYPE", L"live");
    ASSERT_EQ(tags.Count(), 2);
    EXPECT_EQ(tags.Get(L"artist"), XString(L"a\xFFFD\ra\xFFFDz\xFFFD\xD83D\xDE00"));
    EXPECT_EQ(tags.Get(L"releasetype"), XString(L"live"));
}

TEST(TagKeys, WhatFindsNoRoomIsTold) {
    XTagList tags;
    XString longest;
    longest.SetLength(70000);                      // blanks
    EXPECT_TRUE(AddTag(tags, L"lyrics", longest)); // one value may have any length
    EXPECT_TRUE(AddTag(tags, L"encoder", L"x"));   // left out on purpose
    EXPECT_FALSE(AddTag(tags, L"lyrics", L"b"));
    for (std::int64_t i = tags.Count(); i < mostTagNames; ++i)
        EXPECT_TRUE(AddTag(tags, L"key" + DecimalText(i), L"x"));
    EXPECT_FALSE(AddTag(tags, L"one more", L"x"));
    EXPECT_TRUE(AddTag(tags, L"key7", L"y"));
    EXPECT_EQ(tags.Count(), mostTagNames);
    EXPECT_EQ(tags.Get(L"lyrics"), longest);

    XTagList written; // of so many a decoder may leave out others
    ForetellTags(tags, {}, TagValues::separate, written);
    EXPECT_EQ(written.Count(), 0);
}

TEST(TagKeys, TotalsJoinTheirNumbers) {
    struct Totals {
        const wchar_t *numbers, *totals, *expected;
    };
    for (const Totals& row :
         {Totals{L"3\r4", L"12\r13", L"3/12\r4/13"}, Totals{L"3\r4", L"12", L"3/12\r4/12"},
          Totals{L"3/9", L"12", L"3/9"}, Totals{L"3", L"12\r13", L"3/12"}}) {
        XTagList tags;
        tags.Add(L"track", row.numbers);
        tags.Add(L"tracktotal", row.totals);
        JoinTotals(tags);
        EXPECT_EQ(tags.Get(L"track"), XString(row.expected));
        EXPECT_EQ(tags.Count(), 1);
    }
}

} // namespace
