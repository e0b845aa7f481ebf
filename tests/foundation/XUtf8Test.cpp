// Malformed input of either side becomes U+FFFD, and sizes are those of the result.
#include "foundation/XUtf8.h"

#include "foundation/XString.h"

#include <gtest/gtest.h>

TEST(XUtf8, ReadsWellFormedAndMalformed) {
    struct Row {
        const char* utf8;
        const wchar_t* expected;
    };
    constexpr Row rows[] = {
        {"a\xC3\xA4", L"a\x00E4"},
        {"\xE2\x82\xAC", L"\x20AC"},
        {"\xF0\x9F\x8E\xB5", L"\xD83C\xDFB5"},
        {"\xC3", L"\xFFFD"},
        {"\xC0\xAF", L"\xFFFD\xFFFD"},
        {"\xE0\x80\x80", L"\xFFFD\xFFFD\xFFFD"},
        {"\xED\xA0\x80", L"\xFFFD\xFFFD\xFFFD"},
        {"\xF4\x90\x80\x80", L"\xFFFD\xFFFD\xFFFD\xFFFD"},
        {"\xF0\x9F\x8E", L"\xFFFD\xFFFD\xFFFD"},
        {"\xFF", L"\xFFFD"},
    };
    for (const Row& row : rows) {
        wchar_t out[16];
        EXPECT_EQ(Utf8ToWide(row.utf8, out, 16), TextLength(row.expected) + 1);
        EXPECT_EQ(XString(out), row.expected) << "row " << &row - rows;
        EXPECT_EQ(Utf8ToWide(row.utf8, nullptr, 0), TextLength(row.expected) + 1);
    }
    wchar_t small[2];
    EXPECT_EQ(Utf8ToWide("abc", small, 2), 0);
}

TEST(XUtf8, WritesAllLengths) {
    struct Row {
        const wchar_t* wide;
        const char* expected;
    };
    constexpr Row rows[] = {
        {L"a\x00E4\x20AC", "a\xC3\xA4\xE2\x82\xAC"},
        {L"\xD83C\xDFB5", "\xF0\x9F\x8E\xB5"},
        {L"\xD83Cx", "\xEF\xBF\xBDx"},
        {L"\xDFB5", "\xEF\xBF\xBD"},
        {L"\xD83C", "\xEF\xBF\xBD"},
    };
    for (const Row& row : rows) {
        char out[16];
        EXPECT_GT(WideToUtf8(row.wide, out, 16), 0);
        EXPECT_STREQ(out, row.expected);
    }
}
