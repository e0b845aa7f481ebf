#include "HostFixtureWin.h"

#include "host/Settings.h"

namespace {
class Settings : public HostTest {};
} // namespace

TEST_F(Settings, ReadsForgivingly) {
    struct Row {
        DWORD type;
        const void* data;
        DWORD size;
        const wchar_t* text;
        DWORD number;
        bool textFailed;
    };
    static const DWORD seven = 7;
    static const Row rows[] = {
        {REG_SZ, L"abc", 8, L"abc", 0, false},
        {REG_SZ, L"abc", 6, L"abc", 0, false},                    // stored without its terminator
        {REG_SZ, L"abcdefghijkl", 24, L"abcdefghijkl", 0, false}, // and without room behind it
        {REG_SZ, L"", 0, L"", 0, true},
        {REG_EXPAND_SZ, L"%TEMP%", 14, L"%TEMP%", 0, false},
        {REG_DWORD, &seven, 4, L"", 7, true},
        {REG_BINARY, &seven, 4, L"", 0, true},
        {REG_QWORD, L"abc", 8, L"", 0, true},
    };
    for (const Row& row : rows) {
        // The unnamed value is a value like any other.
        for (const wchar_t* name : {L"x", L""}) {
            ASSERT_TRUE(RegWriteValue(row.data, row.size, row.type, name));
            bool failed = !row.textFailed;
            EXPECT_EQ(RegReadString(name, nullptr, nullptr, &failed), XString(row.text)) << row.type;
            EXPECT_EQ(failed, row.textFailed) << row.type << " " << row.size;
            EXPECT_EQ(RegReadDword(name), row.number) << row.type;
        }
    }
    EXPECT_EQ(RegReadDword(L"missing"), 0u);
    EXPECT_TRUE(RegReadString(L"missing").IsEmpty());
}

TEST_F(Settings, FailedReadZeroesTheBuffer) {
    RegWriteString(L"long enough", L"x");
    unsigned char buffer[8];
    for (const DWORD type : {DWORD(REG_SZ), DWORD(REG_DWORD)}) { // too long for the buffer; another type
        memset(buffer, 0xee, sizeof(buffer));
        bool failed = false;
        EXPECT_FALSE(RegReadValue(buffer, sizeof(buffer), type, L"x", nullptr, nullptr, &failed));
        EXPECT_TRUE(failed);
        for (const unsigned char byte : buffer)
            EXPECT_EQ(byte, 0);
    }
}

TEST_F(Settings, ASubkeyReplacesThePathAndLookingCreatesIt) {
    EXPECT_EQ(SettingsPath(), registryPath);
    EXPECT_EQ(SettingsPath(L"\\a"), registryPath + L"\\a");
    EXPECT_EQ(RegReadDword(L"x", nullptr, SettingsPath(L"\\seen")), 0u);
    XStringArray names;
    ASSERT_TRUE(RegEnumSubkeys(nullptr, nullptr, names));
    ASSERT_EQ(names.Count(), 1);
    EXPECT_EQ(names[0], XString(L"seen"));
    XRegistryKey key;
    RegOpen(key, KEY_READ, nullptr, L"");
    EXPECT_FALSE(key.IsValid());
    EXPECT_FALSE(RegWriteDword(1, L"x", nullptr, L""));
    // The empty text lists the root itself.
    ASSERT_TRUE(RegEnumSubkeys(HKEY_CURRENT_USER, L"", names));
    EXPECT_TRUE(names.Contains(L"Software", true));
}

TEST_F(Settings, DeletesATreeAndNothingElse) {
    for (const wchar_t* path : {L"\\t\\a\\b", L"\\t\\a\\c", L"\\t\\d", L"\\tt"})
        RegWriteDword(1, L"v", nullptr, SettingsPath(path));
    RegDeleteTree(nullptr, registryPath, L"");
    RegDeleteTree(nullptr, registryPath, nullptr);
    RegDeleteTree(nullptr, registryPath + L"\\", L"t");
    RegDeleteTree(nullptr, registryPath, L"never there");
    XStringArray names;
    ASSERT_TRUE(RegEnumSubkeys(nullptr, registryPath, names));
    ASSERT_EQ(names.Count(), 1);
    EXPECT_EQ(names[0], XString(L"tt"));
}
