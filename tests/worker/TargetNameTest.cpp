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
        EXPECT_EQ(TargetPathFault(good), nullptr) << testing::PrintToString(XString(good));
    for (const wchar_t* bad : {L"C:\\a\\b?.flac", L"C:\\a:b\\c", L"C:\\a\\", L"C:\\a\tb", L"C:\\<a>\\b", L""})
        EXPECT_NE(TargetPathFault(bad), nullptr) << testing::PrintToString(XString(bad));
    EXPECT_EQ(TargetPathFault(XString(L"C:\\") + Repeated(255)), nullptr);
    EXPECT_NE(TargetPathFault(XString(L"C:\\") + Repeated(256)), nullptr);
    EXPECT_NE(TargetPathFault(XString(L"C:\\") + Repeated(256) + L"\\b"), nullptr);
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
