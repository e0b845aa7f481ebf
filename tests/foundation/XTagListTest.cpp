// Records, and images that are whole, cut or damaged.
#include "foundation/XTagList.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

namespace {

XString Shown(const XTagList& list) {
    XString all;
    for (const XTagItem& item : list.items)
        all +=
            L"{" + item.key + L"|" + item.value + L"|" + DecimalText(static_cast<int>(item.blob.size)) + L"}";
    return all;
}

std::vector<unsigned char> Image(const XTagList& list) {
    XBuffer buffer;
    EXPECT_TRUE(list.Serialize(buffer));
    return {buffer.Bytes(), buffer.Bytes() + buffer.size};
}

std::vector<unsigned char> SampleImage() {
    XTagList list;
    list.Add(L"Title", L"A \x00E4");
    EXPECT_TRUE(list.Add(L"Cover", L"")->blob.Set("\1\2\3", 3));
    list.Add(L"", L"x");
    return Image(list);
}

// A copy of exactly the size, so that a read behind it is caught natively.
XString ShownFrom(const std::vector<unsigned char>& bytes) {
    XTagList list;
    list.Deserialize(bytes.data(), static_cast<std::int64_t>(bytes.size()));
    return Shown(list);
}

} // namespace

TEST(XTagList, FindsTheFirstAndMergesWhatIsMissing) {
    XTagList list;
    list.Add(L"Title", L"");
    list.Add(L"title", L"second");
    EXPECT_EQ(list.Find(L"TITLE"), &list[0]);
    EXPECT_EQ(list.current, &list[0]);
    EXPECT_EQ(list.Find(L"none"), nullptr);
    EXPECT_EQ(list.Find(nullptr), nullptr);
    XTagList other;
    other.Add(L"TITLE", L"theirs");
    ASSERT_TRUE(other.Add(L"Cover", L"c")->blob.Set("ab", 2));
    other.Add(L"cover", L"hidden by the one just merged");
    list.Merge(other);
    EXPECT_EQ(Shown(list), L"{Title||0}{title|second|0}{Cover|c|2}");
    EXPECT_EQ(list.Get(L"COVER"), L"c");
    EXPECT_EQ(list.Get(L"none"), L"");
    list.RemoveAt(1);
    list.RemoveAt(9);
    EXPECT_EQ(list.Count(), 2);
}

TEST(XTagList, ImageLayout) {
    XTagList list;
    ASSERT_TRUE(list.Add(L"K", L"vw")->blob.Set("\xAA", 1));
    const std::vector<unsigned char> expected = {1, 0, 0,   0, 15,  0, 0, 0, 'K', 0,
                                                 0, 0, 'v', 0, 'w', 0, 0, 0, 0xAA};
    EXPECT_EQ(Image(list), expected);
    EXPECT_EQ(Image(XTagList()), std::vector<unsigned char>(4, 0));
    EXPECT_EQ(ShownFrom(expected), L"{K|vw|1}");
    EXPECT_EQ(ShownFrom(SampleImage()), L"{Title|A \x00E4|0}{Cover||3}{|x|0}");
    list.Deserialize(expected.data(), static_cast<std::int64_t>(expected.size()));
    EXPECT_EQ(list.Count(), 2); // appended
    list.Deserialize(nullptr, 100);
    EXPECT_EQ(list.Count(), 2);
}

TEST(XTagList, DamagedImagesYieldLess) {
    struct Row {
        const char* what;
        std::vector<unsigned char> image;
        const wchar_t* expected;
    };
    const Row rows[] = {
        {"count only", {1, 0, 0, 0}, L""},
        {"negative count", {255, 255, 255, 255, 8, 0, 0, 0, 0, 0, 0, 0}, L""},
        {"negative record size", {1, 0, 0, 0, 255, 255, 255, 255, 'a', 0, 0, 0}, L""},
        {"size 0 ends it", {9, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, L"{||0}"},
        {"key only", {2, 0, 0, 0, 8, 0, 0, 0, 'a', 0, 0, 0, 8, 0, 0, 0, 'b', 0, 0, 0}, L"{a||0}"},
        {"open value", {1, 0, 0, 0, 10, 0, 0, 0, 'a', 0, 0, 0, 'b', 0}, L"{a|b|0}"},
        {"record past the end",
         {2, 0, 0, 0, 10, 0, 0, 0, 'a', 0, 0, 0, 0, 0, 11, 0, 0, 0, 'a', 0, 0, 0, 0, 0},
         L"{a||0}"},
        {"fewer records than told", {9, 0, 0, 0, 10, 0, 0, 0, 'a', 0, 0, 0, 0, 0}, L"{a||0}"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(ShownFrom(row.image), row.expected) << row.what;
}

TEST(XTagList, CutAtEveryByteKeepsWholeRecords) {
    const std::vector<unsigned char> whole = SampleImage();
    const XString all = ShownFrom(whole);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const XString shown = ShownFrom({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)});
        EXPECT_TRUE(all.StartsWith(shown)) << size;
        EXPECT_LT(shown.Count(), all.Count()) << size;
    }
}
