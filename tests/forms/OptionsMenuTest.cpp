// Commands, checks and stored values of the Options menu.
#include "forms/converting/OptionsMenu.h"

#include "FormDriver.h"
#include "engine/Records.h"
#include "host/Settings.h"
#include "resources/ids.h"

#include <gtest/gtest.h>

namespace {

bool IsChecked(const clOptionsMenu& menu, int id) {
    const UINT state = GetMenuState(menu.menu.Popup(), static_cast<UINT>(id), MF_BYCOMMAND);
    EXPECT_NE(state, 0xFFFFFFFFU) << id;
    return (state & MF_CHECKED) != 0;
}

TEST(OptionsMenu, ChecksFollowStoredAndChosenValues) {
    const TestSettings settings;
    RegWriteDword(priorityIdle, Setting::priority);
    RegWriteDword(1, Setting::noDisplayError);
    clOptionsMenu menu;
    menu.Load();
    ASSERT_NE(menu.menu.Popup(), nullptr);
    struct Row {
        int command; // 0: as loaded
        int checked[4];
        int unchecked[3];
    };
    constexpr Row rows[] = {
        {0,
         {ID_PRIORITY_IDLE, ID_AFTER_NOTHING},
         {ID_SHOW_ERROR_LOG, ID_SHOW_INFORMATION_LOG, ID_SKIP_FINISHED}},
        {ID_PRIORITY_BELOW, {ID_PRIORITY_BELOW, ID_AFTER_NOTHING}, {ID_PRIORITY_IDLE}},
        {ID_AFTER_RESTART, {ID_AFTER_RESTART, ID_PRIORITY_BELOW}, {ID_AFTER_NOTHING}},
        {ID_SHOW_ERROR_LOG, {ID_SHOW_ERROR_LOG}, {}},
        {ID_SHOW_INFORMATION_LOG, {ID_SHOW_ERROR_LOG, ID_SHOW_INFORMATION_LOG}, {ID_SKIP_FINISHED}},
        {ID_SKIP_FINISHED, {ID_SKIP_FINISHED}, {}},
        {ID_SHOW_ERROR_LOG, {ID_SKIP_FINISHED}, {ID_SHOW_ERROR_LOG}},
    };
    for (const Row& row : rows) {
        EXPECT_TRUE(row.command == 0 || menu.Command(row.command)) << row.command;
        for (const int id : row.checked)
            EXPECT_TRUE(id == 0 || IsChecked(menu, id)) << row.command << ": " << id;
        for (const int id : row.unchecked)
            EXPECT_TRUE(id == 0 || !IsChecked(menu, id)) << row.command << ": " << id;
    }
    EXPECT_EQ(menu.afterConversion, afterRestart);
    EXPECT_EQ(RegReadDword(Setting::priority), priorityBelowNormal);
    EXPECT_EQ(RegReadDword(Setting::noDisplayError), 1U);
    EXPECT_EQ(RegReadDword(Setting::displayInfo), 1U);
    EXPECT_EQ(RegReadDword(Setting::skippedFinish), 1U);
    EXPECT_FALSE(menu.Command(ID_VIEW_LOGS));
}

} // namespace
