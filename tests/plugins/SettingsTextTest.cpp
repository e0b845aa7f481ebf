#include "plugins/common/SettingsText.h"

#include <gtest/gtest.h>

namespace {

struct TextRow {
    const wchar_t* text;
    const wchar_t* expected;
};

constexpr TextRow textRows[] = {
    {nullptr, L""},
    {L"rubbish", L""},
    {L"--level 8  -verify", L"-level=\"8\" -verify"},
    {L"-x=\"a b=c\" -X= 2", L"-x=\"a b=c\" -X=\"2\""},
    {L"---x=1 -a-b", L"---x=\"1\" -a-b"},
    {L"-x=a\"b -y=\"open", L"-x=a\"b -y"},
    {L"-file=\"C:\\-{qt}\\r.txt\"", L"-file=\"C:\\-{qt}\\r.txt\""},
};

TEST(SettingsText, KeepsWhatNobodyChanges) {
    for (const TextRow& row : textRows)
        EXPECT_EQ(SettingsText(row.text).Text(), XString(row.expected)) << row.text;
}

TEST(SettingsText, AnyTextIsStableFromTheSecondPass) {
    constexpr const wchar_t* pieces[] = {L"-", L"\"", L"=", L" ", L"a", L"file", L"{qt}", L"\x4E2D", L"\n"};
    std::uint32_t random = 1;
    for (int round = 0; round < 3000; ++round) {
        XString text;
        for (int i = 0; i < 24; ++i) {
            random = random * 1664525 + 1013904223;
            text += pieces[(random >> 16) % std::size(pieces)];
        }
        const XString once = SettingsText(text).Text();
        const XKeyValueList before(text), after(once);
        for (const XString& key : before.keys) {
            XString was, is;
            before.GetValue(key, was);
            EXPECT_TRUE(after.GetValue(key, is)) << text.Text();
            EXPECT_EQ(is, was) << text.Text();
        }
        EXPECT_EQ(SettingsText(once).Text(), once) << text.Text();
    }
}

struct NumberRow {
    const wchar_t* value;
    int expected; // of 32 to 320, else 192
};

constexpr NumberRow numberRows[] = {
    {L"100", 100}, {L"31", 32},   {L"99999999999999999999", 320},
    {L"-5", 32},   {L"", 192},    {L"-", 192},
    {L"+64", 192}, {L"64k", 192}, {L"6.5", 192},
    {L"064", 64},
};

TEST(SettingsText, BringsNumbersIntoTheRange) {
    for (const NumberRow& row : numberRows) {
        const XString text = XString(L"-n=\"") + row.value + L"\"";
        EXPECT_EQ(SettingsText(text).Number(L"n", 32, 320, 192), row.expected) << text.Text();
    }
}

TEST(SettingsText, WritesOnlyWhatDiffersFromTheDefault) {
    SettingsText text(L"-a=\"1\" -Flag=\"1\" -b=\"X\" -flag=\"0\" -B=\"Y\"");
    text.PutNumber(L"a", 5, 5);
    text.Put(L"b", L"x", L"x"); // stood there already
    text.PutFlag(L"flag", true);
    text.Put(L"c", L"\"C:\\a b\"", L""); // a path as the Explorer copies it
    EXPECT_EQ(text.Text(), XString(L"-Flag=\"1\" -b=\"X\" -c=\"C:\\a b\""));
    text.PutFlag(L"flag", false);
    text.PutFlag(L"other", true);
    text.Put(L"c", L"\"\"", L"");
    EXPECT_EQ(text.Text(), XString(L"-b=\"X\" -other"));
}

} // namespace
