// Texts that come from the registry.
#include "foundation/XDateText.h"
#include "foundation/XHandles.h"
#include "foundation/XRegistryText.h"

#include <gtest/gtest.h>

TEST(XSystemText, RegistryTexts) {
    constexpr wchar_t subkey[] = L"Software\\TonemillTestText";
    HKEY opened = nullptr;
    ASSERT_EQ(
        RegCreateKeyExW(HKEY_CURRENT_USER, subkey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &opened, nullptr),
        0);
    const XRegistryKey key(opened);
    struct Row {
        const wchar_t* name;
        DWORD type;
        const wchar_t* stored;
        DWORD bytes;
        const wchar_t* expected;
    };
    constexpr Row rows[] = {
        {L"", REG_SZ, L"unnamed", 16, L"unnamed"},
        {L"open", REG_SZ, L"abcd", 6, L"abc"}, // stored without its terminator
        {L"raw", REG_EXPAND_SZ, L"%X%", 8, L"%X%"},
        {L"number", REG_DWORD, L"ab", 4, L""},
        {L"odd", REG_SZ, L"ab", 3, L"a"},
        {L"empty", REG_SZ, L"", 0, L""},
    };
    for (const Row& row : rows) {
        ASSERT_EQ(RegSetValueExW(key.Get(), row.name, 0, row.type, reinterpret_cast<const BYTE*>(row.stored),
                                 row.bytes),
                  0);
        EXPECT_EQ(ReadRegistryText(HKEY_CURRENT_USER, subkey, row.name), row.expected) << row.name;
    }
    EXPECT_EQ(ReadRegistryText(HKEY_CURRENT_USER, subkey, L"missing"), L"");
    EXPECT_EQ(ReadRegistryText(HKEY_CURRENT_USER, L"Software\\TonemillNoSuchKey", L""), L"");
    RegDeleteKeyW(HKEY_CURRENT_USER, subkey);
}

TEST(XSystemText, DatesAndTimes) {
    SYSTEMTIME noon{};
    noon.wYear = 2014;
    noon.wMonth = 12;
    noon.wDay = 31;
    noon.wHour = 13;
    noon.wMinute = 2;
    noon.wSecond = 3;
    EXPECT_FALSE(ShortDatePattern().IsEmpty());
    EXPECT_EQ(FormatDate(noon, L"dd'/'MM'/'yyyy"), L"31/12/2014");
    EXPECT_TRUE(FormatTime(noon).StartsWith(L"01:02:03"));
    noon.wMonth = 13;
    EXPECT_EQ(FormatDate(noon, L"dd"), L"");
    noon.wHour = 25;
    EXPECT_EQ(FormatTime(noon), L"");
}
