// Storage, search, extraction and edits of XString.
#include "foundation/XString.h"

#include <gtest/gtest.h>

#include <climits>
#include <new>
#include <utility>

namespace {

XString Repeated(wchar_t ch, int count) {
    XString text;
    text.SetLength(count);
    for (int pos = 1; pos <= count; ++pos)
        text.SetCharAt(pos, ch);
    return text;
}

} // namespace

TEST(XString, EmptyTextsHaveOneUnit) {
    const XString texts[] = {XString(), XString(L""), XString(static_cast<const wchar_t*>(nullptr)),
                             XString(static_cast<const char*>(nullptr))};
    for (const XString& text : texts) {
        EXPECT_EQ(text.StoredLength(), 1);
        EXPECT_EQ(text.CharAt(1), 0);
        EXPECT_EQ(text.CharAt(XSTR_END), 0);
        EXPECT_EQ(text.Find(L"a"), 0);
        EXPECT_EQ(text.Find(L""), 0);
    }
}

TEST(XString, OutgrowsItsInlineBuffer) {
    struct Row {
        const char* what;
        void (*grow)(XString&); // of 127 characters, which fill it
        int count;
    };
    const Row rows[] = {
        {"append", [](XString& s) { s.Append(L"ab"); }, 129},
        {"extend", [](XString& s) { s.Extend(L"ab"); }, 129},
        {"append without slack", [](XString& s) { s.AppendExact(L"ab"); }, 129},
        {"insert a character", [](XString& s) { s.InsertChar(L'x', 1); }, 128},
        {"insert", [](XString& s) { s.Insert(L"abc", 1); }, 130},
        {"set length", [](XString& s) { s.SetLength(200); }, 200},
        {"replace", [](XString& s) { s.Replace(L"x", L"yy"); }, 254},
    };
    for (const Row& row : rows) {
        XString text = Repeated(L'x', 127);
        row.grow(text);
        EXPECT_EQ(text.Count(), row.count) << row.what;
        EXPECT_GT(text.Capacity(), row.count) << row.what;
        EXPECT_EQ(text.Text()[row.count], 0) << row.what;
    }
}

TEST(XString, CopiesAndMovesKeepTheUserValue) {
    for (const int count : {3, 300}) {
        XString text = Repeated(L'x', count);
        text.userValue = 7;
        const XString copy(text);
        EXPECT_EQ(copy, text);
        EXPECT_EQ(copy.userValue, 7u);
        XString assigned(L"old");
        assigned.userValue = 1;
        assigned = text;
        EXPECT_EQ(assigned.userValue, 1u); // assignment leaves it
        const XString moved(std::move(text));
        EXPECT_EQ(moved, copy);
        EXPECT_EQ(moved.userValue, 7u);
        EXPECT_TRUE(text.IsEmpty());
        text.Append(L"again");
        EXPECT_EQ(text, L"again");
    }
}

TEST(XString, TakesPartsOfItself) {
    XString text = Repeated(L'x', 120);
    text.Append(L"tail");
    text.Append(text);
    EXPECT_EQ(text.Count(), 248);
    EXPECT_EQ(text.Right(4), L"tail");
    text.Insert(text.Text() + 244, 1);
    EXPECT_EQ(text.Left(5), L"tailx");
    text.Assign(text.Text() + 248);
    EXPECT_EQ(text, L"tail");
    text.Replace(text.Text() + 3, text);
    EXPECT_EQ(text, L"taitail");
}

TEST(XString, FindCountsFromOne) {
    struct Row {
        const wchar_t *text, *needle;
        int from;
        bool ignoreCase;
        int expected;
    };
    constexpr Row rows[] = {
        {L"xax", L"x", 1, false, 1},         {L"xax", L"x", 2, false, 3},  {L"xax", L"x", 0, false, 0},
        {L"xax", L"x", 4, false, 0},         {L"xax", L"", 2, false, 2},   {L"xax", L"", 4, false, 0},
        {L"xax", L"xaxx", 1, false, 0},      {L"xax", L"X", 1, false, 0},  {L"xax", L"AX", 1, true, 2},
        {L"\x00E4x", L"\x00C4", 1, true, 0}, {L"aab", L"ab", 1, false, 2}, {L"ab", L"b", XSTR_END, false, 2},
        {L"ab", nullptr, 1, false, 0},
    };
    for (const Row& row : rows)
        EXPECT_EQ(XString(row.text).Find(row.needle, row.from, row.ignoreCase), row.expected)
            << row.text << row.needle << row.from;
    const XString path(L"a\\b\\c");
    EXPECT_EQ(path.FindChar(L'\\', 3), 4);
    EXPECT_EQ(path.FindChar(L'\\', 0), 0);
    EXPECT_EQ(path.ReverseFindChar(L'\\'), 4);
    EXPECT_EQ(path.ReverseFindChar(L'x'), 0);
    EXPECT_EQ(path.CharAt(XSTR_END), L'c');
    EXPECT_EQ(path.CharAt(6), 0);
}

TEST(XString, ComparesWithAsciiFoldingAlone) {
    struct Row {
        const wchar_t *a, *b;
        bool equal;
        int noCase;
    };
    constexpr Row rows[] = {
        {L"", L"", true, 0},
        {L"", nullptr, false, 1},
        {L"abc", L"ABC", false, 0},
        {L"ab", L"abc", false, -1},
        {L"abc", L"AB", false, 1},
        {L"b", L"A", false, 1},
        {L"_", L"a", false, -1}, // folded down: '_' stands before 'a'
        {L"\x00E4", L"\x00C4", false, 1},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(XString(row.a).Equals(row.b), row.equal) << row.a;
        EXPECT_EQ(XString(row.a).CompareNoCase(row.b), row.noCase) << row.a;
    }
    EXPECT_EQ(XString(L"az\x00E4Z").Upper(), L"AZ\x00E4Z");
    EXPECT_EQ(XString(L"AZ\x00C4z").Lower(), L"az\x00C4z");
    EXPECT_TRUE(XString(L"abc").StartsWith(L"ab"));
    EXPECT_FALSE(XString(L"ab").StartsWith(L"abc"));
}

TEST(XString, ExtractionClampsToTheText) {
    struct Row {
        XString result;
        const wchar_t* expected;
    };
    const XString abc(L"abc");
    const Row rows[] = {
        {abc.Mid(2, 99), L"bc"},      {abc.Mid(3, 2), L""},     {abc.Mid(0, 2), L""},
        {abc.Mid(4, 4), L""},         {abc.Mid(2), L"bc"},      {abc.Left(2), L"ab"},
        {abc.Left(0), L""},           {abc.Left(9), L"abc"},    {abc.Right(2), L"bc"},
        {abc.Right(0), L""},          {abc.Right(100), L"abc"}, {abc.Right(-1), L""},
        {abc.From(3), L"c"},          {abc.From(4), L""},       {abc.From(XSTR_END), L"c"},
        {abc.Right(INT_MAX), L"abc"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(row.result, row.expected) << "row " << &row - rows;
}

TEST(XString, DeleteTakesTheFullCountFromTheLength) {
    struct Row {
        int from, to;
        const wchar_t* expected;
    };
    constexpr Row rows[] = {
        {2, 3, L"adef"},   {3, 6, L"ab"},    {3, 7, L"a"},           {3, 100, L""},
        {1, INT_MAX, L""}, {6, 6, L"abcde"}, {7, 9, L"abcdef"},      {0, 2, L"abcdef"},
        {3, 2, L"abcdef"}, {6, 8, L"abc"},   {5, XSTR_END, L"abcd"},
    };
    for (const Row& row : rows) {
        XString text(L"abcdef");
        text.Delete(row.from, row.to);
        EXPECT_EQ(text, row.expected) << row.from << ".." << row.to;
        EXPECT_EQ(text.Count(), TextLength(row.expected));
    }
}

TEST(XString, EditsInPlace) {
    struct Row {
        const char* what;
        const wchar_t* text;
        void (*edit)(XString&);
        const wchar_t* expected;
    };
    const Row rows[] = {
        {"insert in front", L"bc", [](XString& s) { s.Insert(L"a", 1); }, L"abc"},
        {"insert at the end", L"ab", [](XString& s) { s.Insert(L"c", 3); }, L"abc"},
        {"insert past the end", L"ab", [](XString& s) { s.Insert(L"c", 4); }, L"ab"},
        {"insert null", L"ab", [](XString& s) { s.Insert(nullptr, 1); }, L"ab"},
        {"append a character", L"ab", [](XString& s) { s.InsertChar(L'c'); }, L"abc"},
        {"insert a character at 0", L"ab", [](XString& s) { s.InsertChar(L'c', 0); }, L"ab"},
        {"cut", L"abc", [](XString& s) { s.SetLength(1); }, L"a"},
        {"pad", L"a", [](XString& s) { s.SetLength(3); }, L"a  "},
        {"negative length", L"a", [](XString& s) { s.SetLength(-1); }, L"a"},
        {"trim blanks, not tabs", L"  \ta\t ", [](XString& s) { s.TrimLeft(), s.TrimRight(); }, L"\ta\t"},
        {"trim all", L"   ", [](XString& s) { s.TrimLeft(), s.TrimRight(); }, L""},
        {"replace never rescans", L"aaa", [](XString& s) { s.Replace(L"a", L"aa"); }, L"aaaaaa"},
        {"replace by nothing", L"abab", [](XString& s) { s.Replace(L"b", L""); }, L"aa"},
        {"replace nothing", L"ab", [](XString& s) { s.Replace(L"", L"x"); }, L"ab"},
        {"replace keeps case", L"XaBXAb", [](XString& s) { s.Replace(L"aB", L"-", true); }, L"X-X-"},
        {"replace minds case", L"XaBXAb", [](XString& s) { s.Replace(L"Ab", L"-"); }, L"XaBX-"},
    };
    for (const Row& row : rows) {
        XString text(row.text);
        row.edit(text);
        EXPECT_EQ(text, row.expected) << row.what;
    }
}

TEST(XString, OverlongRequestsAreExhaustion) {
    XString text(L"a");
    EXPECT_THROW(text.SetLength(INT_MAX), std::bad_alloc);
    EXPECT_EQ(text, L"a");
}

TEST(XString, NarrowTextIsACopyOfItsMoment) {
    XString text("plain");
    EXPECT_EQ(text, L"plain");
    const char* narrow = text.ToNarrow();
    text.Append(L" text");
    EXPECT_STREQ(narrow, "plain");
    EXPECT_STREQ(text.ToNarrow(), "plain text");
    text.Assign("again");
    EXPECT_STREQ(text.ToNarrow(), "again");
}
