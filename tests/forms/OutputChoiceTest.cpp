// The rules of the output location, without a form.
#include "forms/setup/OutputChoice.h"

#include <gtest/gtest.h>

namespace {

// Modes: 0 original folder, 1 chosen folder, 2 dynamic naming, 3 none checked.
constexpr int none = 3;
struct Row {
    int mode;
    bool noSame, noFolder;
    int shown, stored;
    bool folderList, naming; // can be used
};
constexpr Row rows[] = {
    {0, false, false, 0, 0, false, false},  {1, false, false, 1, 1, true, false},
    {2, false, false, 2, 2, true, true},    {none, false, false, none, 0, false, false},
    {0, true, false, 1, 1, true, false},    {2, true, false, 2, 2, true, true},
    {1, false, true, 0, 0, false, false},   {2, false, true, 0, 0, false, false},
    {0, true, true, none, 0, false, false}, {2, true, true, none, 0, false, false},
};

TEST(OutputChoice, FollowsWhatTheEncoderOffers) {
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.mode << " " << row.noSame << row.noFolder);
        const clOutputLimits limits{row.noSame, row.noFolder};
        const clOutputChoice shown =
            AllowedChoice(ChoiceOfMode(static_cast<std::uint32_t>(row.mode)), limits);
        EXPECT_EQ(shown.original, row.shown == 0);
        EXPECT_EQ(shown.folder, row.shown == 1);
        EXPECT_EQ(shown.dynamic, row.shown == 2);
        EXPECT_EQ(OutputModeOf(shown), static_cast<std::uint32_t>(row.stored));
        const clOutputEnabled enabled = EnabledControls(shown, limits);
        EXPECT_EQ(enabled.folderList, row.folderList);
        EXPECT_EQ(enabled.naming, row.naming);
    }
    EXPECT_EQ(OutputModeOf({true, true, true}), 2U);
}

TEST(OutputChoice, RemembersTheCurrentFolderAndNineOthers) {
    XStringArray listed, history;
    Split(listed, L"D:\\c\\|D:\\0\\|D:\\1\\|D:\\2\\|D:\\C\\|D:\\3\\|D:\\4\\|D:\\5\\|D:\\6\\|D:\\7\\|D:\\8\\",
          L"|");
    FolderHistory(history, L"D:\\c\\", listed);
    XString joined;
    for (const XString& folder : history)
        joined += folder.Mid(4, 4);
    EXPECT_EQ(joined, XString(L"c012C34567"));
}

TEST(OutputChoice, SaysWhatChanged) {
    EXPECT_EQ(ChangeMessage(false, false), XString());
    EXPECT_EQ(ChangeMessage(true, false), XString(L"Output Location Changed"));
    EXPECT_EQ(ChangeMessage(false, true), XString(L"DSP Effects Changed"));
    EXPECT_EQ(ChangeMessage(true, true), XString(L"Output Location, DSP Effects Changed"));
    EXPECT_EQ(FileCountText(0), XString(L"Converting 0 Files"));
    EXPECT_EQ(FileCountText(1), XString(L"Converting 1 File"));
}

} // namespace
