// Folders, walks, deleting, and what the system tells about itself.
#include "foundation/XFileSystem.h"

#include "TestFolder.h"
#include "foundation/XFindFile.h"
#include "foundation/XHandles.h"
#include "foundation/XPath.h"

namespace {

class XFileSystem : public TestFolder {};

} // namespace

TEST_F(XFileSystem, FoldersAreMadeFoundAndRemoved) {
    const XString deep = folder + L"a\\b\\c\\";
    EXPECT_TRUE(MakeFolders(deep));
    EXPECT_TRUE(MakeFolders(deep));
    EXPECT_FALSE(MakeFolders(L""));
    EXPECT_FALSE(MakeFolders(L"nowhere"));
    Put(L"a\\file", "x", 1);
    EXPECT_FALSE(MakeFolders(folder + L"a\\file\\x")); // a file stands in the way
    struct Row {
        XString path;
        bool exists, isFolder;
    };
    const Row rows[] = {{deep, true, true},
                        {folder + L"a\\file", true, false},
                        {folder + L"b", false, false},
                        {L"", false, false},
                        {L"C:", true, true},
                        {L"C:\\", true, true},
                        {L"Q:", false, false},
                        {folder + L"a", true, true}};
    for (const Row& row : rows) {
        bool isFolder = !row.isFolder;
        EXPECT_EQ(PathExists(row.path, &isFolder), row.exists) << row.path.Text();
        EXPECT_EQ(isFolder, row.isFolder) << row.path.Text();
    }
    EXPECT_TRUE(IsFile(folder + L"a\\file"));
    EXPECT_FALSE(IsFile(deep));
    EXPECT_TRUE(DeleteTree(folder + L"a", L"*.*", false)); // its own folders stay, and so does it
    EXPECT_FALSE(PathExists(folder + L"a\\file"));
    EXPECT_TRUE(PathExists(deep));
    EXPECT_TRUE(DeleteTree(folder + L"a"));
    EXPECT_FALSE(PathExists(folder + L"a"));
}

TEST_F(XFileSystem, RootsAreNeverDeleted) {
    for (const wchar_t* root : {L"", L"C:", L"Q:\\", L"\\\\?\\Q:\\"})
        EXPECT_FALSE(DeleteTree(root)) << root;
}

TEST_F(XFileSystem, ReadOnlyFilesAreDeleted) {
    const XString path = Put(L"kept", "x", 1);
    ASSERT_TRUE(SetFileAttributesW(path, FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN));
    EXPECT_TRUE(ClearReadOnly(path));
    EXPECT_FALSE(GetFileAttributesW(path) & FILE_ATTRIBUTE_READONLY);
    ASSERT_TRUE(SetFileAttributesW(path, FILE_ATTRIBUTE_READONLY));
    EXPECT_TRUE(DeleteOneFile(path));
    EXPECT_FALSE(PathExists(path));
    EXPECT_FALSE(DeleteOneFile(path));
    EXPECT_FALSE(ClearReadOnly(path));
}

TEST_F(XFileSystem, LongPathsWork) {
    XString deep(folder);
    while (deep.Count() < 400)
        deep += L"a folder of forty characters, or nearly\\";
    ASSERT_TRUE(MakeFolders(deep));
    EXPECT_TRUE(PathExists(deep));
    XFile file(deep + L"file.txt");
    EXPECT_TRUE(file.Open(GENERIC_WRITE, CREATE_NEW));
    file.Close();
    EXPECT_TRUE(IsFile(file.path));
    EXPECT_TRUE(DeleteOneFile(file.path));
}

TEST_F(XFileSystem, WalksPassOverDots) {
    Put(L"one.txt", "", 0);
    Put(L"two.mp3", "", 0);
    ASSERT_TRUE(MakeFolders(folder + L"sub.txt"));
    struct Row {
        const wchar_t* pattern;
        bool foldersOnly;
        int expected;
    };
    for (const Row& row :
         {Row{L"*.*", false, 3}, Row{L"*.txt", false, 2}, Row{L"*.*", true, 1}, Row{L"*.x", false, 0}}) {
        XFindFile find(StripBackslash(folder), row.pattern);
        find.foldersOnly = row.foldersOnly;
        int found = 0;
        while (find.Next()) {
            ++found;
            EXPECT_EQ(find.fullPath, folder + find.findData.cFileName);
        }
        EXPECT_EQ(found, row.expected) << found;
        EXPECT_FALSE(find.Next());
    }
}

TEST_F(XFileSystem, UnknownSpecialFoldersHaveAStandIn) {
    EXPECT_EQ(GetSpecialFolder(0x5005), L"C:\\Error\\");
    EXPECT_EQ(GetSpecialFolder(0x5005, L"D:\\x"), L"D:\\x\\");
    EXPECT_EQ(GetSpecialFolder(0x5005, L""), L"");
    EXPECT_TRUE(IsFile(ProgramPath()));
    EXPECT_EQ(ProgramFolder() + NameOf(ProgramPath()), ProgramPath());
}

TEST_F(XFileSystem, FileTypesFallBackOnTheExtension) {
    EXPECT_EQ(FileTypeName(L"a.TMQX"), L"tmqx File");
    EXPECT_EQ(FileTypeName(L"b.tmqx"), L"tmqx File");
    EXPECT_EQ(FileTypeName(L"a"), L"File");
    EXPECT_GE(ShellIconIndex(L"a.txt", 0), 0);
    EXPECT_TRUE(XIcon(ShellIcon(folder, shellLargeIcon | shellFromDisk)).IsValid());
}
