// Path helpers.
#include "foundation/XPath.h"

#include <gtest/gtest.h>

namespace {

XString OfLength(const wchar_t* head, int count) {
    XString path(head);
    while (path.Count() < count)
        path.InsertChar(L'x');
    return path;
}

} // namespace

TEST(XPath, PartsOfAPath) {
    struct Row {
        const wchar_t *path, *folder, *name, *stripped, *bareName, *extension;
    };
    constexpr Row rows[] = {
        {L"C:\\a\\b.mp3", L"C:\\a\\", L"b.mp3", L"C:\\a\\b", L"b", L".mp3"},
        {L"a", L"a", L"a", L"a", L"a", L"."},
        {L"C:\\x\\", L"C:\\x\\", L"", L"C:\\x\\", L"", L"."},
        {L"C:\\a.b\\c", L"C:\\a.b\\", L"c", L"C:\\a", L"c", L"."},
        {L"a.b.c", L"a.b.c", L"a.b.c", L"a.b", L"a.b", L".c"},
        {L"a.", L"a.", L"a.", L"a", L"a", L"."},
        {L"", L"", L"", L"", L"", L"."},
    };
    for (const Row& row : rows) {
        const XString path(row.path);
        EXPECT_EQ(FolderOf(path), row.folder) << path.Text();
        EXPECT_EQ(NameOf(path), row.name) << path.Text();
        EXPECT_EQ(StripExtension(path), row.stripped) << path.Text();
        EXPECT_EQ(NameWithoutExtension(path), row.bareName) << path.Text();
        EXPECT_EQ(ExtensionOf(path), row.extension) << path.Text();
    }
    EXPECT_EQ(AddBackslash(L""), L"\\");
    EXPECT_EQ(AddBackslash(L"a\\"), L"a\\");
    EXPECT_EQ(StripBackslash(L"a\\\\"), L"a");
    EXPECT_EQ(StripBackslash(L"\\"), L"");
    EXPECT_EQ(Quote(L"a b"), L"\"a b\"");
}

TEST(XPath, RootsAndPopping) {
    struct Row {
        const wchar_t* path;
        int root;
        const wchar_t *out, *rest;
    };
    constexpr Row rows[] = {
        {L"C:\\a", 4, L"a", L"C:\\"},
        {L"C:", 1, L"", L"C:"},
        {L"C:\\", 4, L"", L"C:\\"},
        {L"C:\\a\\b\\\\", 4, L"b", L"C:\\a\\"},
        {L"a\\b", 1, L"", L"a\\b"}, // a backslash at 2 makes no root
        {L"\\\\server\\share\\x", 10, L"x", L"\\\\server\\share\\"},
        {L"\\\\?\\C:\\a", 8, L"a", L"\\\\?\\C:\\"},
        {L"\\\\?\\C:\\", 8, L"", L"\\\\?\\C:\\"},
        {L"Folder1\\Folder2", 9, L"Folder2", L"Folder1\\"},
        {L"Folder1\\", 9, L"", L"Folder1\\"},
        {L"", 1, L"", L""},
    };
    for (const Row& row : rows) {
        XString path(row.path);
        XString out(L"old");
        EXPECT_EQ(RootEnd(path), row.root) << path.Text();
        PopLastFolder(out, path);
        EXPECT_EQ(out, row.out) << row.path;
        EXPECT_EQ(path, row.rest) << row.path;
    }
}

TEST(XPath, LongPathsGetThePrefix) {
    struct Row {
        const wchar_t* head;
        int count, limit;
        bool prefixed;
    };
    constexpr Row rows[] = {
        {L"C:\\", 259, longFileLimit, false},    {L"C:\\", 260, longFileLimit, true},
        {L"C:\\", 247, longFolderLimit, false},  {L"C:\\", 248, longFolderLimit, true},
        {L"\\\\s\\", 300, longFileLimit, false}, {L"\\\\?\\C:\\", 300, longFileLimit, false},
    };
    for (const Row& row : rows) {
        const XString path = OfLength(row.head, row.count);
        EXPECT_EQ(LongPath(path, row.limit), (row.prefixed ? L"\\\\?\\" : L"") + path) << row.count;
    }
    EXPECT_EQ(LongPath(L"", longFileLimit), L"");
}
