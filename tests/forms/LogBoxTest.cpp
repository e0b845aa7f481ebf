// The text of the logs' box.
#include "forms/converting/LogBox.h"

#include <gtest/gtest.h>

TEST(LogBox, ShowsTheFirstEntriesAndCountsTheRest) {
    XArray<clLogEntry> errors;
    XArray<clLogEntry> information;
    for (int i = 0; i < 15; ++i) {
        clLogEntry* entry = errors.AddNew();
        entry->source = L"C:\\a" + DecimalText(i);
        entry->lines.AddString(L"bad");
        entry->lines.AddString(L"worse");
    }
    for (int i = 0; i < 100; ++i) // a worker that talks fills no screen
        errors[11].lines.AddString(L"noise");
    information.AddNew()->source = L"C:\\info";
    const XString text = LogBoxText(errors, information);
    EXPECT_TRUE(text.StartsWith(L"Errors:\r\nC:\\a0\r\n    bad\r\n    worse\r\nC:\\a1\r\n"));
    EXPECT_GT(text.Find(L"C:\\a11\r\n"), 0);
    EXPECT_EQ(text.Find(L"C:\\a12"), 0);
    EXPECT_EQ(text.Find(L"noise"), 0);
    EXPECT_GT(text.Find(L"... and 100 more lines of these\r\n... and 3 more\r\n"), 0);
    EXPECT_GT(text.Find(L"Information:\r\nC:\\info\r\n"), 0);
    EXPECT_TRUE(LogBoxText(information, information).StartsWith(L"Errors:\r\nC:\\info\r\n\r\nInformation"));
}
