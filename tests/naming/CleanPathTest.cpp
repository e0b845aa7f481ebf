// Characters, components, roots and lengths of cleaned paths.
#include "naming/OutputPath.h"

#include <gtest/gtest.h>

namespace {

XString Cleaned(XString path, bool enforceLimit = true, bool hasRoot = true) {
    CleanPath(path, enforceLimit, hasRoot);
    return path;
}

XString Repeated(wchar_t ch, int count) {
    XString text;
    text.SetLength(count);
    for (int i = 1; i <= count; ++i)
        text.SetCharAt(i, ch);
    return text;
}

struct CleanRow {
    const wchar_t* path;
    const wchar_t* expected;
};

TEST(CleanPath, OutputPaths) {
    constexpr CleanRow rows[] = {
        {L"C:\\Out\\What?.mp3", L"C:\\Out\\What\u00BF.mp3"},
        {L"C:\\Out\\Ox/Ew: Live.mp3", L"C:\\Out\\Ox-Ew; Live.mp3"},
        {L"C:\\\"a\"\\<b>|*.mp3", L"C:\\'a'\\\u00ABb\u00BB--.mp3"},
        {L"C:\\a\tb\x1F.mp3", L"C:\\a_b\x1F.mp3"},
        {L"C:\\Out\\Live...mp3", L"C:\\Out\\Live...mp3"},
        {L"C:\\A.B.C.\\x.mp3", L"C:\\A.B.C\\x.mp3"},
        {L"C:\\a. .\\x", L"C:\\a\\x"},
        {L"C:\\.hidden\\.x", L"C:\\hidden\\x"},
        {L"C:\\..\\..\\x.mp3", L"C:\\x.mp3"},
        {L"C:\\a \\ b \\c.mp3 ", L"C:\\a\\ b\\c.mp3"},
        {L"C:\\a\\\\b\\", L"C:\\a\\b"},
        {L"C:\\Out\\.mp3", L"C:\\Out\\mp3"},
        {L"C:\\", L"C:\\"},
        {L"\\\\server\\share\\a.\\b?", L"\\\\server\\share\\a\\b\u00BF"},
        {L"\\\\?\\C:\\a|b\\c", L"\\\\?\\C:\\a-b\\c"},
        {L"song?", L"song\u00BF"},
    };
    for (const CleanRow& row : rows)
        EXPECT_EQ(Cleaned(row.path), XString(row.expected));
}

TEST(CleanPath, FlagsDecideOnRootAndTidying) {
    struct Row {
        bool enforceLimit, hasRoot;
        const wchar_t* expected;
    };
    constexpr Row rows[] = {
        {true, true, L"C:\\a\\b"}, // the limit cleans once more: both groups of dots go
        {false, true, L"C:\\a.\\b"},
        {true, false, L"C;\\a\\b"},
        {false, false, L"C;\\a.\\b"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Cleaned(L"C:\\a. .\\b", row.enforceLimit, row.hasRoot), XString(row.expected))
            << row.enforceLimit << row.hasRoot;
}

TEST(CleanPath, CutsLongComponents) {
    XString path = L"C:\\" + Repeated(L'f', 300) + L"\\x.flac";
    EXPECT_EQ(Cleaned(path, false), L"C:\\" + Repeated(L'f', 254) + L"\\x.flac");
    path = L"C:\\" + Repeated(L'n', 300) + L".flac";
    EXPECT_EQ(Cleaned(path, false), L"C:\\" + Repeated(L'n', 249) + L".flac");
    path = L"C:\\" + Repeated(L'n', 255);
    EXPECT_EQ(Cleaned(path, false), L"C:\\" + Repeated(L'n', 253) + L".");
    path = L"C:\\a." + Repeated(L'e', 300);
    EXPECT_EQ(Cleaned(path, false), L"C:\\a." + Repeated(L'e', 300)) << "a stem keeps one character";
    // The extension fills the name alone: it is cut once more when the total length has taken its dot.
    path = L"C:\\name." + Repeated(L'x', 253);
    EXPECT_EQ(Cleaned(path, false), L"C:\\n." + Repeated(L'x', 253));
}

struct LengthRow {
    const char* what;
    int folder, stem;                 // lengths before
    int expectedFolder, expectedStem; // and after; C:\f...\s....mp3
};

TEST(CleanPath, ShortensToTheLimit) {
    constexpr LengthRow rows[] = {
        {"259 stay", 150, 101, 150, 101},
        {"260 lose one of the stem", 150, 102, 150, 101},
        {"stem of 61 goes first", 191, 61, 191, 60},
        {"stem of 60 stays", 192, 60, 191, 60},
        {"folder goes first", 230, 50, 201, 50},
    };
    for (const LengthRow& row : rows) {
        const XString path =
            L"C:\\" + Repeated(L'f', row.folder) + L"\\" + Repeated(L's', row.stem) + L".mp3";
        const XString cleaned = Cleaned(path);
        EXPECT_EQ(cleaned, L"C:\\" + Repeated(L'f', row.expectedFolder) + L"\\" +
                               Repeated(L's', row.expectedStem) + L".mp3")
            << row.what;
        EXPECT_LE(cleaned.Count(), 259) << row.what;
    }
}

TEST(CleanPath, ShorteningEndsWhereNothingIsLeftToTake) {
    // The root can't be shortened: the stem goes down to one character and the path stays too long.
    const XString root = L"\\\\" + Repeated(L'h', 270) + L"\\";
    EXPECT_EQ(Cleaned(root + L"name.mp3"), root + L"n.mp3");
    // Folders vanish one by one, the name stays.
    XString deep = L"C:\\";
    for (int i = 0; i < 200; ++i)
        deep += L"d\\";
    const XString cleaned = Cleaned(deep + L"name.mp3");
    EXPECT_LE(cleaned.Count(), 259);
    EXPECT_EQ(cleaned.Right(9), XString(L"\\name.mp3"));
    EXPECT_EQ(cleaned.Find(L"\\\\"), 0);
}

} // namespace
