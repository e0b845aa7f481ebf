// Both formatters: the built-in one directly, and Format through whichever serves here.
#include "foundation/XFormat.h"

#include <gtest/gtest.h>

namespace {

XString BuiltIn(const wchar_t* pattern, ...) {
    XString out(L"old");
    va_list arguments;
    va_start(arguments, pattern);
    BuiltInFormat(out, pattern, arguments);
    va_end(arguments);
    return out;
}

const wchar_t* const nothing = nullptr;

} // namespace

TEST(XFormat, BuiltInDirectives) {
    struct Row {
        XString result;
        const wchar_t* expected;
    };
    const Row rows[] = {
        {BuiltIn(L"a%%b"), L"a%b"},
        {BuiltIn(L"%s-%s-%d", L"x", L"", 5), L"x--5"},
        {BuiltIn(L"<%s>", nothing), L"<>"},
        {BuiltIn(L"%.2s", L"abc"), L"ab"},
        {BuiltIn(L"%d %i %u", -3, 4, 0xFFFFFFFFu), L"-3 4 4294967295"},
        {BuiltIn(L"%x %X %08X", 0xABu, 0xABu, 0xABu), L"ab AB 000000AB"},
        {BuiltIn(L"%3d|%03d|%4d", 5, 5, -5), L"005|005|-005"},
        {BuiltIn(L"%f %.2f %.0f", 1.5, 0.25, 3.0), L"1.50000 0.25 3"},
        {BuiltIn(L"%6.1f", 2.5), L"0002.5"},
        {BuiltIn(L"a%1.2.3d", 5), L""},
        {BuiltIn(L"%-+d", 7), L"7"}, // unknown characters are skipped
        {BuiltIn(L"a%"), L"a"},
        {BuiltIn(L"%q"), L""},
        {BuiltIn(nullptr), L""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(row.result, row.expected) << "row " << &row - rows;
}

TEST(XFormat, FormatTakesItsOwnTextAsArgument) {
    XString text(L"one");
    text.Format(L"%s and %s %d", text.Text(), L"two", 3);
    EXPECT_EQ(text, L"one and two 3");
}

TEST(XFormat, ResultsAroundTheBuffersSizesAreWhole) {
    for (const int count : {998, 999, 1000, 1001, 4999, 5000, 30000}) {
        XString part;
        part.SetLength(count);
        XString text;
        text.Format(L"%s", part.Text());
        EXPECT_EQ(text, part) << count;
    }
}
