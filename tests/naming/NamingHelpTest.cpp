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
        EXPECT_EQ(example.FindChar(L'['), 0) << XString(row.form).ToNarrow();
        const bool isEmptyHere = XString(row.form).FindChar(L'<') > 0 || XString(row.form) == L"\\";
        if (headings == 0) {
            EXPECT_EQ(example.IsEmpty(), isEmptyHere) << XString(row.form).ToNarrow();
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
        {L"[track_total][disc_total]", L"153"},
        {L"[album artist], [genre], [year], [disc]", L"Lena Orchard, Pop, 2003, 1"},
        {L"[unique] [unique]", L"5754 5754"},
        {L"[length] [length_mmss] [length_hhmmss]", L"125955 10.51 01.25.55"},
        {L"[frequency]/[channels]/[channels_subone]", L"44100-2-1"},
        {L"[bits_per_sample]/[bytes_per_sample]", L"16-2"},
        {L"[bitrate]/[k_bitrate]", L"128000-128"},
        {L"[encoder]|[encoder+]|[extension]|[cddb_id]", L"mp3 (Lame)-mp3 (Lame) -q5-mp3-3DF2700A"},
        {L"[origdrive][origpath]\\[origfilename]", L"f;\\Folder1\\Folder2\\Folder3\\filename"},
        {L"[BACKFOLDER]1[]-[FRONTFOLDER]1[]-[TRIMFIRSTFOLDER][origpath][]",
         L"Folder3-Folder1-Folder2\\Folder3"},
        {L"[protected] [id_tag] [audio_quality] [gapless]", L"No ID3v2.2 Medium (Lossy) Yes"},
        {L"[band][mood][composer]", L""},
        {L"a: [Title]", L"a; Holiday"},
        {L"[title]\\", L"Holiday"},
        {L"[title]\\\\\\", L"Holiday"},
        {L"\\", L""},
        {L"[unknown] [UPPER]x", L"[unknown] [UPPER]x"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Example(row.naming), XString(row.expected)) << XString(row.naming).ToNarrow();
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
        EXPECT_TRUE(TellsFilesApart(naming)) << XString(naming).ToNarrow();
    for (const wchar_t* naming : {L"", L"[artist]", L"[Title]", L"title", L"[TRACK]", L"[track_total]"})
        EXPECT_FALSE(TellsFilesApart(naming)) << XString(naming).ToNarrow();
}

} // namespace
