#include "worker/TargetName.h"

#include <gtest/gtest.h>

namespace {

XString Repeated(int count) {
    XString text;
    for (int i = 0; i < count; ++i)
        text += L"x";
    return text;
}

TEST(TargetName, FaultsOfPaths) {
    for (const wchar_t* good : {L"C:\\a\\b.flac", L"\\\\server\\share\\b.flac", L"\\\\?\\C:\\b", L"b.mp3"})
        EXPECT_EQ(TargetPathFault(good), nullptr) << good;
    for (const wchar_t* bad : {L"C:\\a\\b?.flac", L"C:\\a:b\\c", L"C:\\a\\", L"C:\\a\tb", L"C:\\<a>\\b", L""})
        EXPECT_NE(TargetPathFault(bad), nullptr) << bad;
    EXPECT_EQ(TargetPathFault(XString(L"C:\\") + Repeated(255)), nullptr);
    EXPECT_NE(TargetPathFault(XString(L"C:\\") + Repeated(256)), nullptr);
    EXPECT_NE(TargetPathFault(XString(L"C:\\") + Repeated(256) + L"\\b"), nullptr);
}

TEST(TargetName, DeviceNamesAreRefused) {
    for (const wchar_t* bad :
         {L"C:\\a\\NUL", L"C:\\a\\nul.flac", L"C:\\Con\\b.flac", L"C:\\a\\prn.tar.gz", L"C:\\a\\AUX .mp3",
          L"com1.mp3", L"C:\\a\\LPT9", L"C:\\a\\com\u00b2.x", L"\\\\?\\C:\\a\\CONOUT$", L"C:/aux/b.flac"})
        EXPECT_NE(TargetPathFault(bad), nullptr) << bad;
    for (const wchar_t* good :
         {L"C:\\a\\Console.flac", L"C:\\a\\NULL", L"C:\\a\\COM0.x", L"C:\\a\\COM10", L"C:\\a\\com.x",
          L"C:\\a\\LPT", L"C:\\a\\01 - NUL.flac", L"C:\\a\\.nul", L"C:\\\\a"})
        EXPECT_EQ(TargetPathFault(good), nullptr) << good;
}

struct NameRow {
    const wchar_t* target;
    int attempt;
    const wchar_t* expected;
};
constexpr NameRow nameRows[] = {
    {L"C:\\a.b\\long name.flac", 0, L"C:\\a.b\\~tm1a2c.flac"},
    {L"C:\\a.b\\long name.flac", 3, L"C:\\a.b\\~tm1a2c-3.flac"},
    {L"C:\\a.b\\name", 0, L"C:\\a.b\\~tm1a2c"},
    {L"name.mp3", 0, L"~tm1a2c.mp3"},
};

TEST(TargetName, TemporaryNameIsShortAndBeside) {
    for (const NameRow& row : nameRows)
        EXPECT_EQ(TemporaryTargetPath(row.target, 0x1a2c, row.attempt), row.expected);
}

} // namespace
