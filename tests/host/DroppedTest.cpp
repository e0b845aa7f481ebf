// Dropped files and folders on the real disk.
#include "HostFixtureWin.h"

#include "foundation/XFileSystem.h"
#include "foundation/XHandles.h"
#include "foundation/XPath.h"
#include "host/DroppedFiles.h"

namespace {

class Dropped : public HostTest {
protected:
    void SetUp() override {
        HostTest::SetUp();
        Split(extensions, L".mp3|.FLAC", L"|");
    }
    void MakeFile(const XString& path) {
        ASSERT_TRUE(MakeFolders(FolderOf(path)));
        const XFileHandle file(
            CreateFileW(LongPath(path, longFileLimit), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
        ASSERT_TRUE(file.IsValid());
    }
    // The paths below the fixture's folder, sorted.
    XString Drop(const wchar_t* names) {
        XStringArray dropped;
        Split(dropped, names, L"|");
        for (XString& name : dropped)
            name = folder + name;
        AddDroppedFiles(files, dropped, extensions);
        XStringArray all;
        for (const clFileItem& item : files)
            all.AddString(item.sourcePath.From(folder.Count() + 1));
        all.SortTexts(true);
        XString joined;
        for (const XString& path : all)
            joined += path + L"|";
        return joined;
    }
    XStringArray extensions;
    clFileList files;
};

TEST_F(Dropped, KnownExtensionsAtAnyDepthOnce) {
    for (const wchar_t* name : {L"one.mp3", L"one.txt", L"in\\a.MP3", L"in\\b.flac.bak", L"in\\mp3",
                                L"in\\x.mp3\\c.fLaC", L"in\\x.mp3\\none", L"in\\empty\\deep\\.mp3"})
        MakeFile(folder + name);
    EXPECT_EQ(Drop(L"one.txt|in\\mp3"), XString());
    EXPECT_EQ(Drop(L"one.mp3|in\\"), XString(L"in\\a.MP3|in\\empty\\deep\\.mp3|in\\x.mp3\\c.fLaC|one.mp3|"));
    EXPECT_EQ(files[0].sourcePath, folder + L"one.mp3");
    EXPECT_EQ(AddDroppedFiles(files, XStringArray(), extensions), 0);
    Drop(L"in|ONE.MP3|in\\x.mp3");
    EXPECT_EQ(files.Count(), 4);
}

TEST_F(Dropped, LongAndDeepFolders) {
    XString path = folder + L"long";
    for (int level = 0; level < 30; ++level)
        path += L"\\a folder of 20 units";
    MakeFile(path + L"\\song.mp3");
    Drop(L"long");
    ASSERT_EQ(files.Count(), 1);
    EXPECT_EQ(files[0].sourcePath, path + L"\\song.mp3");
}

// Wine makes no junctions; a link of the system below it stands for one.
class FolderLink {
public:
    FolderLink(const XString& target, const XString& link) : link(link) {
        Run(L"ln -s " + UnixName(target) + L" " + UnixLink(), true);
    }
    ~FolderLink() { Run(L"rm " + UnixLink(), false); }
    FolderLink(const FolderLink&) = delete;
    FolderLink& operator=(const FolderLink&) = delete;

private:
    static XString UnixName(const XString& path) {
        using Function = char*(CDECL*)(const wchar_t*);
        const auto function = reinterpret_cast<Function>(reinterpret_cast<void*>(
            GetProcAddress(GetModuleHandleW(L"kernel32"), "wine_get_unix_file_name")));
        char* name = function ? function(path) : nullptr;
        const XString text(name);
        HeapFree(GetProcessHeap(), 0, name);
        return text;
    }
    XString UnixLink() const { return UnixName(FolderOf(link)) + L"/" + NameOf(link); }
    // Such a process can't be waited for.
    void Run(const XString& command, bool isThereAfterwards) {
        XString line = L"\\\\?\\unix\\bin\\" + command;
        STARTUPINFOW start{};
        start.cb = sizeof start;
        PROCESS_INFORMATION process{};
        ASSERT_TRUE(CreateProcessW(nullptr, line.Buffer(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                   &start, &process));
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
        const ULONGLONG end = GetTickCount64() + 10000;
        while (PathExists(link) != isThereAfterwards && GetTickCount64() < end)
            Sleep(1);
        ASSERT_EQ(PathExists(link), isThereAfterwards);
    }
    XString link;
};

TEST_F(Dropped, LinksInALoopEnd) {
    MakeFile(folder + L"in\\a\\one.mp3");
    MakeFile(folder + L"out\\two.mp3");
    // With two links to the top a walk that follows all would take 2 to the power of its depth.
    const FolderLink up(folder + L"in", folder + L"in\\a\\up");
    const FolderLink again(folder + L"in", folder + L"in\\a\\again");
    const FolderLink other(folder + L"out", folder + L"in\\other");
    EXPECT_EQ(Drop(L"in"), XString(L"in\\a\\one.mp3|in\\other\\two.mp3|"));
}

} // namespace
