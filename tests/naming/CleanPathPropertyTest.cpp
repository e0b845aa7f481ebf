// What holds for every cleaned path, over random ones of the characters that rules speak of.
#include "foundation/XArray.h"
#include "foundation/XPath.h"
#include "foundation/XRandom.h"
#include "naming/OutputPath.h"

#include <gtest/gtest.h>

namespace {

constexpr int pathCount = 20000;
constexpr wchar_t alphabet[] = L"ab. .\\ \\x:C?\x01\"";
constexpr std::uint32_t letters = sizeof alphabet / sizeof alphabet[0] - 1;

// Below a drive or a folder of it; one in eight has stretches that reach the limits of length.
XString RandomPath(XMersenneTwister& random) {
    XString path = random.Below(2) ? L"C:\\o\\" : L"C:\\";
    const bool isLong = random.Below(8) == 0;
    for (std::uint32_t n = random.Below(14); n > 0; --n) {
        const wchar_t ch = alphabet[random.Below(letters)];
        const std::uint32_t times = isLong && random.Below(3) == 0 ? random.Below(300) : 1;
        for (std::uint32_t i = 0; i < times; ++i)
            path.InsertChar(ch);
    }
    return path + L".mp3"; // as every output has one; see ALongExtensionIsKept
}

// A folder that ends in groups of dots with blanks between, such as "a. .": one cleaning takes the last
// group only, as users of such names have known it. A second cleaning takes more of it.
bool HasParted(const XString& path) {
    for (int i = 1; i <= path.Count(); ++i) {
        if (path.CharAt(i) != L'.' || path.CharAt(i + 1) != L' ')
            continue;
        int end = i + 1;
        while (path.CharAt(end) == L' ')
            ++end;
        if (path.CharAt(end) == L'.')
            return true;
    }
    return false;
}

// Where the limit of length eats into a folder that begins with blanks, it can leave nothing but them:
// they go, and a doubled backslash stays that only a second cleaning takes.
bool MayLeaveBlanks(const XString& path) {
    return path.Count() > 259 && path.Find(L"\\ ") > 0;
}

void ExpectLegal(const XString& path) {
    EXPECT_EQ(path.Left(3), XString(L"C:\\"));
    XStringArray components;
    Split(components, path.From(4), L"\\");
    for (const XString& component : components) {
        EXPECT_LE(component.Count(), 254);
        EXPECT_NE(component.CharAt(1), L'.');
        for (int i = 1; i <= component.Count(); ++i)
            EXPECT_TRUE(component.CharAt(i) >= 31 && !XString(L"\"<>?:/*|").FindChar(component.CharAt(i)));
    }
}

TEST(CleanPathProperty, CleanedPathsAreLegalAndStayAsTheyAre) {
    XMersenneTwister random(20);
    int excepted = 0;
    for (int i = 0; i < pathCount && !testing::Test::HasFailure(); ++i) {
        const XString path = RandomPath(random);
        SCOPED_TRACE(testing::PrintToString(path));
        XString once = path;
        CleanPath(once, true, true);
        if (HasParted(path) || MayLeaveBlanks(path)) {
            ++excepted;
            continue;
        }
        ExpectLegal(once);
        XString twice = once;
        CleanPath(twice, true, true);
        EXPECT_EQ(once, twice);
    }
    EXPECT_LT(excepted, pathCount / 10);
    XString folder = L"C:\\a. .\\x";
    CleanPath(folder, false, true);
    EXPECT_EQ(folder, XString(L"C:\\a.\\x"));
    CleanPath(folder, false, true);
    EXPECT_EQ(folder, XString(L"C:\\a\\x"));
}

// The other case: an extension that fills the name alone is kept whole, so the name passes its limit,
// and is cut once more when the total length has taken its dot.
TEST(CleanPathProperty, ALongExtensionIsKept) {
    XString extension;
    extension.SetLength(253);
    extension.Replace(L" ", L"x");
    XString path = L"C:\\name." + extension;
    CleanPath(path, false, true);
    EXPECT_EQ(path, L"C:\\n." + extension);
}

} // namespace
