// What the list of files to convert says and takes over, without a window.
#include "forms/review/ListTexts.h"

#include "foundation/XNumberText.h"
#include "host/clFileItem.h"

#include <gtest/gtest.h>

TEST(ListTexts, SummaryCountsAndSums) {
    struct Row {
        clListSummary summary;
        const wchar_t* text;
    };
    constexpr Row rows[] = {
        {{1, 3072, true}, L"Converting 1 File to A & B\t\tEstimated Total: 3 KB\t\tfree"},
        {{2, 12, true}, L"Converting 2 Files to A & B\t\tEstimated Total: 12 bytes\t\tfree"},
        {{0, 0, true}, L"Converting 0 Files to A & B"},
        {{1234, 3072, false}, L"Converting 1234 Files to A & B"},
        {{3, 0, true}, L"Converting 3 Files to A & B"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(SummaryText(row.summary, L"A & B", L"\t\tfree"), XString(row.text));
}

TEST(ListTexts, FreeSpaceNeedsADriveRoot) {
    struct Row {
        const wchar_t *destination, *root;
    };
    constexpr Row rows[] = {
        {L"C:\\a", L"C:\\"}, {L"z:\\", L"z:\\"}, {L"C:a", L""}, {L"\\\\server\\share\\a", L""},
        {L"Music\\a", L""},  {L"< Burn >", L""}, {L"C", L""},   {L"", L""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(DriveRootOf(row.destination), XString(row.root)) << XString(row.destination).ToNarrow();
    EXPECT_EQ(FreeSpaceSentence(3072, L"Q:\\"), XString(L"\t\tFree Space: 3 KB on Q:\\"));
}

TEST(ListTexts, LengthFollowsTheSetting) {
    constexpr int modes[] = {1, 1, 2, 3, 0, 5};
    for (std::uint32_t setting = 0; setting < 6; ++setting)
        EXPECT_EQ(LengthModeOf(setting), modes[setting]);
}

TEST(ListTexts, DestinationIsWhatTheConversionWrites) {
    struct Row {
        const wchar_t *source, *folder, *naming, *extension;
        bool needsTags;
        std::uint32_t stage;
        const wchar_t* text;
    };
    constexpr Row rows[] = {
        {L"D:\\a.b\\x.y.wav", L"", L"", L".mp3", false, stageNothing, L"D:\\a.b\\x.y"},
        {L"\\\\server\\share\\x.wav", L"", L"", L".mp3", false, stageNothing, L"\\\\server\\share\\x"},
        {L"D:\\x.wav", L"E:\\out", L"", L".mp3", true, stageNothing, L"E:\\out\\x"},
        {L"D:\\x.wav", L"E:\\out", L"[origfilename] b", L".mp3", false, stageNothing, L"E:\\out\\x b"},
        {L"D:\\x.wav", L"E:\\out", L"[title]", L".mp3", true, stageFormat, L""},
        {L"D:\\x.wav", L"E:\\out", L"n [title]", L".mp3", true, stageTags, L"E:\\out\\n x"},
        {L"D:\\x.wav", L"E:\\out", L"[title]", L".cd.IGNORE", true, stageNothing, L"< Codec >"},
        {L"D:\\x.wav", L"E:\\out", L"", L".ignore", false, stageNothing, L"E:\\out\\x"},
    };
    for (const Row& row : rows) {
        clFileItem file;
        file.sourcePath = row.source;
        file.outputPath = L"kept";
        file.SetStage(row.stage);
        const XString codec(L"Codec"), folder(row.folder), naming(row.naming), extension(row.extension);
        EXPECT_EQ(ComputedDestination(file, {codec, folder, naming, extension, row.needsTags}),
                  XString(row.text))
            << XString(row.naming).ToNarrow();
        EXPECT_EQ(file.outputPath, XString(L"kept"));
    }
    EXPECT_EQ(SourceText(L"D:\\a.b\\x.y.wav", L"unused"), XString(L"D:\\a.b\\x.y"));
    EXPECT_EQ(SourceText(L"cd.IGNORE.1", L"Disc"), XString(L"< Disc >"));
}

TEST(ListTexts, OnlyAnEditIsTakenOver) {
    struct Row {
        const wchar_t *before, *shown, *computed, *after;
    };
    constexpr Row rows[] = {
        {L"", L"C:\\a", L"C:\\a", L""},
        {L"", L"C:\\A", L"C:\\a", L"C:\\A"},
        {L"", L"", L"C:\\a", L""},
        {L"C:\\old", L"", L"C:\\a", L"C:\\old"},
        {L"C:\\old", L"C:\\old", L"C:\\a", L"C:\\old"},
        {L"C:\\a", L"C:\\a", L"C:\\a", L"C:\\a"}, // a rename that is also what would be computed
        {L"C:\\old", L"C:\\a", L"C:\\a", L""},    // typed back
        {L"", L"C:\\early", L"", L"C:\\early"},   // before its tags are read
    };
    for (const Row& row : rows)
        for (const bool isChecked : {false, true}) {
            clFileItem file;
            file.outputPath = row.before;
            file.skipFlag = 7;
            CommitRow(file, row.shown, row.computed, isChecked);
            EXPECT_EQ(file.outputPath, XString(row.after)) << XString(row.shown).ToNarrow();
            EXPECT_EQ(file.skipFlag, isChecked ? 0U : 1U);
        }
}
