// Plain number text.
#include "foundation/XString.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

TEST(XString, WritesIntegers) {
    EXPECT_EQ(DecimalText(0), L"0");
    EXPECT_EQ(DecimalText(-12), L"-12");
    EXPECT_EQ(DecimalText(INT64_MAX), L"9223372036854775807");
    EXPECT_EQ(DecimalText(INT64_MIN), L"-9223372036854775808");
    EXPECT_EQ(UnsignedText(UINT64_MAX), L"18446744073709551615");
    XString text;
    text.ToHex(0xABC);
    EXPECT_EQ(text, L"0000000000000ABC");
    text.ToHexShort(0xABC);
    EXPECT_EQ(text, L"ABC");
    text.ToHexShort(0);
    EXPECT_EQ(text, L"0");
}

TEST(XString, ReadsIntegers) {
    struct Row {
        const wchar_t* text;
        std::int64_t expected;
    };
    constexpr Row rows[] = {
        {L"  -12abc", -12},
        {L"+7", 7},
        {L"--7", 0},
        {L"", 0},
        {L"- 7", 0},
        {L"\t7", 0},
        {L"x7", 0},
        {L"-9223372036854775808", INT64_MIN},
        {L"18446744073709551617", 1}, // wraps
    };
    for (const Row& row : rows)
        EXPECT_EQ(XString(row.text).ToInt(), row.expected) << row.text;
}

TEST(XString, WritesReals) {
    struct Row {
        double value;
        int decimals;
        bool keepZeros;
        const wchar_t* expected;
    };
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const Row rows[] = {
        {0.5, 2, false, L"0.5"},
        {0.005, 2, true, L"0.00"},
        {2, 0, false, L"2"},
        {2, 0, true, L"2."}, // the point stays with the zeros
        {20, 0, false, L"20"},
        {1234.5, 2, true, L"1234.50"},
        {-1.25, 1, false, L"-1.2"},
        {0.999, 2, true, L"1.00"},
        {0, 3, true, L"0.000"},
        {0, 3, false, L"0"},
        {0.05, 1, true, L"0.0"},
        {0.06, 1, true, L"0.1"},
        {-0.5, 1, true, L"-0.5"},
        {infinity, 0, false, L"18446744073709551615"},
        {std::nan(""), 0, false, L"0"},
    };
    for (const Row& row : rows) {
        XString text;
        text.FromReal(row.value, row.decimals, row.keepZeros);
        EXPECT_EQ(text, row.expected) << row.value << " with " << row.decimals;
    }
}
