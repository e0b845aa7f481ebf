// Growth, sorting, and cutting texts into arrays.
#include "foundation/XArray.h"

#include "foundation/XBuffer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

XString Joined(const XStringArray& texts) {
    XString all;
    for (const XString& text : texts)
        all += L"<" + text + L">";
    return all;
}

} // namespace

TEST(XArray, InsertsAndRemovesWithinBounds) {
    XStringArray texts;
    texts.AddString(L"b", 5);
    texts.InsertString(-1, L"c");
    texts.InsertString(7, L"d");
    texts.InsertString(0, L"a");
    EXPECT_EQ(Joined(texts), L"<a><b><c><d>");
    EXPECT_EQ(texts[1].userValue, 5u);
    texts.DeleteAt(-1);
    texts.DeleteAt(4);
    texts.DeleteAt(1);
    EXPECT_EQ(Joined(texts), L"<a><c><d>");
    EXPECT_EQ(texts.RemoveAt(3), nullptr);
    delete texts.RemoveAt(2);
    EXPECT_TRUE(texts.Contains(L"C", true));
    EXPECT_FALSE(texts.Contains(L"C", false));
    EXPECT_FALSE(XStringArray().Contains(L"", true));
}

TEST(XArray, SortsHostileOrders) {
    struct Row {
        const char* what;
        int count;
        int (*key)(int i, int count);
    };
    constexpr Row rows[] = {
        {"rising", 100000, [](int i, int) { return i; }},
        {"falling", 100000, [](int i, int count) { return count - i; }},
        {"equal", 100000, [](int, int) { return 1; }},
        // The middle is the worst pivot here: quadratic, and as deep as it is long without care.
        {"organ pipes", 20000, [](int i, int count) { return std::min(i, count - i); }},
        {"scattered", 100000, [](int i, int) { return static_cast<int>(i * 2654435761u >> 8); }},
    };
    const auto less = [](const void* a, const void* b, void*) {
        return *static_cast<const int*>(a) < *static_cast<const int*>(b);
    };
    for (const Row& row : rows) {
        std::vector<int> keys;
        XPointerSlots slots;
        for (int i = 0; i < row.count; ++i)
            keys.push_back(row.key(i, row.count));
        for (int& key : keys)
            slots.Add(&key);
        slots.Sort(less, nullptr);
        EXPECT_TRUE(std::is_sorted(slots.items, slots.items + row.count, [&](const void* a, const void* b) {
            return less(a, b, nullptr);
        })) << row.what;
    }
}

TEST(XArray, SortStaysInItsRange) {
    struct Row {
        std::int64_t left, right;
        const wchar_t* expected;
    };
    constexpr Row rows[] = {{-1, -1, L"<B><a><c><d>"}, {1, 2, L"<d><a><c><B>"},  {2, -1, L"<d><c><B><a>"},
                            {0, 4, L"<d><c><a><B>"},   {-2, 3, L"<d><c><a><B>"}, {3, 1, L"<d><c><a><B>"}};
    for (const Row& row : rows) {
        XStringArray texts;
        for (const wchar_t* text : {L"d", L"c", L"a", L"B"})
            texts.AddString(text);
        texts.Sort([](const XString& a, const XString& b) { return a.CharAt(1) < b.CharAt(1); }, row.left,
                   row.right);
        EXPECT_EQ(Joined(texts), row.expected) << row.left << ".." << row.right;
    }
    XStringArray texts;
    for (const wchar_t* text : {L"ab", L"B", L"a", L""})
        texts.AddString(text);
    texts.SortTexts(false);
    EXPECT_EQ(Joined(texts), L"<><B><a><ab>");
    texts.SortTexts(true);
    EXPECT_EQ(Joined(texts), L"<><a><ab><B>");
    // An order that contradicts itself must not lead out of the array.
    texts.Sort([](const XString&, const XString&) { return true; });
    EXPECT_EQ(texts.Count(), 4);
}

TEST(XArray, CutsTexts) {
    struct Row {
        const wchar_t *text, *delimiter, *expected;
    };
    constexpr Row splits[] = {
        {L"a,,b", L",", L"<a><><b>"},  {L"a,", L",", L"<a><>"}, {L"", L",", L""},
        {L"a,b,", L",", L"<a><b><>"},  {L"a", nullptr, L""},    {L"a", L"", L""},
        {L"a--b-", L"--", L"<a><b->"}, {L"ab", L",", L"<ab>"},
    };
    for (const Row& row : splits) {
        XStringArray pieces;
        Split(pieces, row.text, row.delimiter);
        EXPECT_EQ(Joined(pieces), row.expected) << "row " << &row - splits;
    }
    constexpr Row lines[] = {
        {L"a\rb\r\nc", nullptr, L"<a><b><c>"},
        {L"a\nb", nullptr, L"<a\nb>"},
        {L"a\r\r\n\nb\r", nullptr, L"<a><><b>"},
        {L"", nullptr, L""},
        {L"\r", nullptr, L"<>"},
        {L"\nx", nullptr, L"<\nx>"},
    };
    for (const Row& row : lines) {
        XStringArray out;
        out.AddString(L"old");
        SplitLines(row.text, out);
        EXPECT_EQ(Joined(out), row.expected) << "row " << &row - lines;
    }
}

TEST(XArray, MultiStringsKeepEmptyEntries) {
    XStringArray texts;
    XBuffer image;
    ASSERT_TRUE(texts.JoinMulti(image));
    EXPECT_EQ(image.size, 4u);
    texts.AddString(L"");
    texts.AddString(L"b");
    ASSERT_TRUE(texts.JoinMulti(image));
    constexpr wchar_t expected[] = L"[Empty]\0b\0";
    ASSERT_EQ(image.size, sizeof expected);
    EXPECT_EQ(std::memcmp(image.data, expected, sizeof expected), 0);
    XStringArray back;
    back.SplitMulti(expected, sizeof expected);
    EXPECT_EQ(Joined(back), L"<><b>");
    // Without terminators within the given bytes nothing behind them is read.
    const std::vector<wchar_t> cut = {L'a', L'\0', L'b'};
    back.SplitMulti(cut.data(), 6);
    EXPECT_EQ(Joined(back), L"<a><b>");
    back.SplitMulti(cut.data(), 1);
    EXPECT_EQ(back.Count(), 0);
}
