// The list of the language and the example: that every row works as written, the samples, and which
// templates tell files apart.
#include "naming/NamingHelp.h"

#include "naming/NamingSystem.h"

#include <gtest/gtest.h>

namespace {

XString Example(const wchar_t* naming) {
    return NamingExample(naming);
}

// A form that is misspelled, or an element without a sample, would show here.
TEST(NamingHelp, EveryRowYieldsSomethingOfItsOwn) {
    int headings = 0;
    for (std::size_t i = 0; i < NamingRowCount(); ++i) {
        const clNamingRow& row = NamingRowAt(i);
        EXPECT_FALSE(XString(row.description).IsEmpty()) << i;
        if (!row.form) {
            ++headings;
            EXPECT_EQ(XString(NamingRowAt(i + 1).form), L"[IFCOMP]string[]");
            continue;
        }
        const XString example = Example(row.form);
        EXPECT_EQ(example.FindChar(L'['), 0) << row.form;
        const bool isEmptyHere = XString(row.form).FindChar(L'<') > 0 || XString(row.form) == L"\\";
        if (headings == 0) {
            EXPECT_EQ(example.IsEmpty(), isEmptyHere) << row.form;
        }
    }
    EXPECT_EQ(headings, 1);
    EXPECT_EQ(NamingRowCount(), 58u);
}

TEST(NamingHelp, Examples) {
    constexpr struct {
        const wchar_t* naming;
        const wchar_t* expected;
    } rows[] = {
        {L"", L""},
        {L"[artist]\\[album]\\[track] - [title]", L"Lena Orchard\\Immaculate\\05 - Holiday"},
        {L"[unique] [unique]", L"5754 5754"},
        {L"[origdrive][origpath]\\[origfilename]", L"f;\\Folder1\\Folder2\\Folder3\\filename"},
        {L"[BACKFOLDER]1[]-[FRONTFOLDER]1[]-[TRIMFIRSTFOLDER][origpath][]",
         L"Folder3-Folder1-Folder2\\Folder3"},
        {L"[band][mood][composer]", L""},
        {L"a: [Title]", L"a; Holiday"},
        {L"[title]\\", L"Holiday"},
        {L"[title]\\\\\\", L"Holiday"},
        {L"\\", L""},
        {L"[unknown] [UPPER]x", L"[unknown] [UPPER]x"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Example(row.naming), XString(row.expected)) << row.naming;
    const clNamingClock now = ReadNamingClock();
    EXPECT_EQ(Example(L"[day_of_week] [now_year]"),
              DecimalText(now.dayOfWeek) + L" " + DecimalText(now.year));
}

// Longer than any path may be: the example is not shortened to one.
TEST(NamingHelp, LongExampleStaysWhole) {
    XString naming;
    for (int i = 0; i < 100; ++i)
        naming += L"[album]\\";
    EXPECT_EQ(NamingExample(naming).Count(), 100 * 11 - 1);
}

TEST(NamingHelp, TellsFilesApartByElementsInTheirOwnSpelling) {
    for (const wchar_t* naming : {L"[title]", L"x[track]", L"[unique]", L"[artist]\\[origfilename]"})
        EXPECT_TRUE(TellsFilesApart(naming)) << naming;
    for (const wchar_t* naming : {L"", L"[artist]", L"[Title]", L"title", L"[TRACK]", L"[track_total]"})
        EXPECT_FALSE(TellsFilesApart(naming)) << naming;
}

} // namespace
