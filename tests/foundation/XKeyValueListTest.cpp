// The option grammar as rows.
#include "foundation/XKeyValueList.h"

#include <gtest/gtest.h>

namespace {

XString Shown(const XKeyValueList& list) {
    EXPECT_EQ(list.keys.Count(), list.values.Count());
    XString all;
    for (std::int64_t i = 0; i < list.keys.Count(); ++i)
        all += L"{" + list.keys[i] + L"|" + list.values[i] + L"}";
    return all;
}

struct Row {
    const wchar_t *text, *expected;
};

} // namespace

TEST(XKeyValueList, Grammar) {
    constexpr Row rows[] = {
        {L"-folder=\"C:\\a b\" -x", L"{folder|C:\\a b}{x|}"},
        {L"--key value", L"{key|value}"},
        {L"key=value", L""},
        {L"", L""},
        {nullptr, L""},
        {L"-", L""},
        {L"- -x", L"{x|}"},
        {L"-= -x", L"{x|}"},
        {L"-a -b", L"{a|}{b|}"},
        {L"-a=-5", L"{a|}{5|}"},
        {L"-a = = 5", L"{a|5}"},
        {L"-a=b-c -d", L"{a|b-c}{d|}"},
        {L"-k \"unterminated", L"{k|}"},
        {L"-k \"unterminated -x 1", L"{k|}{x|1}"},
        {L"-k\"v w\"-x", L"{k|v w}{x|}"},
        {L"-k=\"\" -x=1", L"{k|}{x|1}"},
        {L"bare-word -x", L"{word|}{x|}"},
        {L"---x 1", L"{-x|1}"},
        {L"-k=a=b", L"{k|a=b}"},
        {L"-k 1  2 -k 3", L"{k|1}{k|3}"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Shown(XKeyValueList(row.text)), row.expected) << row.text;
    EXPECT_EQ(Shown(XKeyValueList(L"-a -b", 2)), L"{b|}");
    EXPECT_EQ(Shown(XKeyValueList(L"-a", 9)), L"");
}

TEST(XKeyValueList, FirstOfTwoIsFound) {
    const XKeyValueList list(L"-Output=1 -output=2 -none");
    XString value(L"old");
    EXPECT_TRUE(list.GetValue(L"output", value));
    EXPECT_EQ(value, L"1");
    EXPECT_TRUE(list.GetValue(L"NONE", value));
    EXPECT_EQ(value, L"");
    value = L"old";
    EXPECT_FALSE(list.GetValue(L"missing", value));
    EXPECT_EQ(value, L"");
    EXPECT_TRUE(list.Has(L"Output"));
    EXPECT_FALSE(list.Has(L"Out"));
}

TEST(XKeyValueList, CommandLines) {
    struct Case {
        const wchar_t *line, *options, *tail;
    };
    constexpr Case cases[] = {
        {L"\"C:\\a-b c\\p.exe\"  -x=1 ", L"{x|1}", L"-x=1"},
        {L"C:\\a-b\\p.exe -x", L"{b\\p.exe|}{x|}", L"-x"}, // nobody asks for the first
        {L"p.exe", L"", L""},
        {L"\"open -x", L"", L""},
        {L"p.exe  <config> ", L"", L"<config>"},
    };
    for (const Case& one : cases) {
        XKeyValueList list;
        list.ParseCommandLine(one.line);
        EXPECT_EQ(Shown(list), one.options) << one.line;
        EXPECT_EQ(CommandLineTail(one.line), one.tail);
    }
}
