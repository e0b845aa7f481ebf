// Regional forms, each under settings of its own.
#include "foundation/XNumberText.h"

#include <gtest/gtest.h>

namespace {

// What the settings of the running test say.
const wchar_t* (*answer)(const wchar_t* name);

class XNumberText : public testing::Test {
protected:
    void SetUp() override { kept = LocaleNumbers(); }
    void TearDown() override { LocaleNumbers() = kept; }
    static void Use(const wchar_t* (*settings)(const wchar_t*)) {
        answer = settings;
        XLocaleNumbers numbers;
        FillLocaleNumbers(numbers, [](const wchar_t* name) { return XString(answer(name)); });
        numbers.loaded = true;
        LocaleNumbers() = numbers;
    }
    static const wchar_t* English(const wchar_t* name) {
        return XString(name) == L"sThousand" ? L"," : XString(name) == L"sDecimal" ? L"." : L"";
    }
    XLocaleNumbers kept;
};

} // namespace

TEST_F(XNumberText, AbsentSettingsAreDefaults) {
    Use([](const wchar_t*) { return L""; });
    const XLocaleNumbers& numbers = LocaleNumbers();
    EXPECT_TRUE(numbers.leadingZero);
    EXPECT_EQ(numbers.negativeForm, 1);
    EXPECT_FALSE(numbers.indianGrouping);
    EXPECT_EQ(XString(numbers.timeSeparator), L":");
    EXPECT_EQ(FormatInt(-1234567), L"-1234567");
    EXPECT_EQ(FormatReal(1234.5, 2, true), L"1234.50");
}

TEST_F(XNumberText, SettingsAreTakenByName) {
    Use([](const wchar_t* name) {
        const XString text(name);
        return text == L"iLZero"          ? L"0"
               : text == L"sPositiveSign" ? L"+"
               : text == L"sTime"         ? L"1234567"
                                          : L"";
    });
    EXPECT_FALSE(LocaleNumbers().leadingZero);
    EXPECT_EQ(XString(LocaleNumbers().timeSeparator), L"12345"); // cut to five
    EXPECT_EQ(FormatInt(5), L"+5");
    XString nothing;
    Localise(nothing);
    EXPECT_EQ(nothing, L"");
}

TEST_F(XNumberText, GroupsDigits) {
    Use(English);
    EXPECT_EQ(FormatInt(999), L"999");
    EXPECT_EQ(FormatInt(1234567), L"1,234,567");
    EXPECT_EQ(FormatInt(-123), L"-123");
    EXPECT_EQ(FormatReal(1234.5, 2, true), L"1,234.50");
    EXPECT_EQ(FormatReal(-123456.25, 1, true), L"-123,456.2");
    LocaleNumbers().indianGrouping = true;
    EXPECT_EQ(FormatInt(1234567), L"12,34,567");
}

// The first point is exchanged after grouping, so this pair gives the English form.
TEST_F(XNumberText, PointBetweenGroupsIsTakenForTheDecimalOne) {
    Use([](const wchar_t* name) {
        return XString(name) == L"sThousand" ? L"." : XString(name) == L"sDecimal" ? L"," : L"";
    });
    EXPECT_EQ(FormatReal(1234.5, 2, true), L"1,234.50");
    EXPECT_EQ(FormatReal(12.5, 1, true), L"12,5");
    EXPECT_EQ(FormatInt(1234567), L"1,234.567");
}

TEST_F(XNumberText, NegativeForms) {
    Use(English);
    struct Row {
        int form;
        const wchar_t* expected;
    };
    constexpr Row rows[] = {{0, L"(1,234)"}, {1, L"~1,234"},  {2, L"~ 1,234"},
                            {3, L"1,234~"},  {4, L"1,234 ~"}, {9, L"~1,234"}};
    LocaleNumbers().negativeSign[0] = L'~';
    for (const Row& row : rows) {
        LocaleNumbers().negativeForm = row.form;
        EXPECT_EQ(FormatInt(-1234), row.expected) << row.form;
    }
}

TEST_F(XNumberText, SizesTakeTheLargestUnit) {
    Use(English);
    struct Row {
        std::int64_t bytes;
        bool forceKilo;
        const wchar_t* expected;
    };
    constexpr Row rows[] = {
        {0, false, L"0 bytes"},
        {1, false, L"1 byte"},
        {1023, false, L"1023 bytes"}, // plain, without a separator
        {1024, false, L"1 KB"},
        {1025, false, L"1 KB"},
        {1040, false, L"2 KB"},
        {1048575, false, L"1,024 KB"},
        {1048576, false, L"1 MB"},
        {1572864, false, L"1.5 MB"},
        {std::int64_t(5) << 30, false, L"5 GB"},
        {std::int64_t(2000) << 40, false, L"2,000 TB"},
        {0, true, L"0 KB"},
        {10, true, L"0 KB"},
        {11, true, L"1 KB"},
        {2147483648, true, L"2,097,152 KB"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(FormatSize(row.bytes, row.forceKilo), row.expected) << row.bytes;
}
