#include "host/EncoderItem.h"

#include <gtest/gtest.h>

TEST(EncoderItem, NameOfItemText) {
    struct Row {
        const wchar_t* item;
        const wchar_t* encoder;
        bool profile;
    };
    static constexpr Row rows[] = {
        {L"", L"", false},
        {L"FLAC", L"FLAC", false},
        {L"Car \"MP3\"", L"MP3", true},
        {L"My \"best\" one \"MP3\"", L"MP3", true},
        {L"\"MP3\"", L"MP3", true},
        {L"odd\"", L"odd", true},
        {L"\"", L"", true},
        {L"x \"\"", L"", true},
        {L"\"a\" b", L"\"a\" b", false},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(EncoderNameOf(row.item), XString(row.encoder)) << row.item;
        EXPECT_EQ(IsProfileItem(row.item), row.profile);
    }
    EXPECT_EQ(EncoderNameOf(ProfileItemText(L"a\"b", L"Ogg")), XString(L"Ogg"));
}

TEST(SmartInstall, TakesWholeRecordsAndOffersWhatIsMissing) {
    XStringArray lines;
    for (const wchar_t* line : {L".a", L"One", L"addr1", L".b", L"Two (read only)", L"addr2", L".c", L"three",
                                L"addr3", L".d", L"Cut"})
        lines.AddString(line);
    XArray<clSmartInstall> records;
    SmartInstallFromLines(records, lines);
    ASSERT_EQ(records.Count(), 3);
    EXPECT_EQ(records[2].extension, XString(L".c"));
    EXPECT_EQ(records[2].address, XString(L"addr3"));
    XStringArray listed;
    listed.AddString(L"THREE");
    const bool offered[] = {true, false, false};
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(IsSmartInstallOffered(records[i], listed), offered[i]) << i;
}
