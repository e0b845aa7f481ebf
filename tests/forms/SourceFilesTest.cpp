// Files that come to the set-up form while it is open: dropped, and handed over by another start.
#include "SetUpFixture.h"
#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "host/HandOff.h"

#include <shlobj.h>

#include <cstring>
#include <initializer_list>
#include <vector>

namespace {

class SourceFiles : public SetUpForm {
protected:
    SourceFiles() : folder(TempFolder() + L"tm-setup\\") {
        DeleteTree(folder);
        MakeFolders(folder + L"in");
    }
    ~SourceFiles() override { DeleteTree(folder); }
    void Make(const wchar_t* name, const XString& text = XString()) const {
        XFile file(folder + name);
        ASSERT_TRUE(file.Open(GENERIC_WRITE, CREATE_ALWAYS));
        file.Write(text.Text(), static_cast<DWORD>(text.Count()) * sizeof(wchar_t));
    }
    static bool SaysFiles(const wchar_t* count) {
        return TextOf(Form(), ID_FILE_COUNT) == XString(L"Converting ") + count;
    }
    XString folder;
};

HDROP MakeDrop(const XStringArray& paths) {
    std::vector<wchar_t> texts;
    for (const XString& path : paths)
        texts.insert(texts.end(), path.Text(), path.Text() + path.StoredLength());
    const SIZE_T size = sizeof(DROPFILES) + (texts.size() + 1) * sizeof(wchar_t);
    const HGLOBAL block = GlobalAlloc(GHND, size);
    auto* drop = static_cast<DROPFILES*>(GlobalLock(block));
    drop->pFiles = sizeof(DROPFILES);
    drop->fWide = TRUE;
    std::memcpy(drop + 1, texts.data(), texts.size() * sizeof(wchar_t));
    GlobalUnlock(block);
    return static_cast<HDROP>(block);
}

TEST_F(SourceFiles, CountsWhatIsNotLeftOut) {
    for (int i = 0; i < 3; ++i)
        files.Append();
    files[1].skipFlag = 1;
    Run({[] { return SaysFiles(L"2 Files"); }}, IDCANCEL);
    files[0].skipFlag = 2;
    Run({[] { return SaysFiles(L"1 File"); }}, IDCANCEL);
}

TEST_F(SourceFiles, TakesDroppedFilesOfKnownTypesOnce) {
    for (const wchar_t* name : {L"one.aaa", L"in\\two.AAA", L"in\\three.txt"})
        Make(name);
    const auto drop = [this](std::initializer_list<const wchar_t*> names) -> Step {
        XStringArray paths;
        for (const wchar_t* name : names)
            paths.AddString(folder + name);
        return [block = MakeDrop(paths)] {
            return PostMessageW(Form(), WM_DROPFILES, reinterpret_cast<WPARAM>(block), 0) != 0;
        };
    };
    Run({drop({L"one.aaa"}), [] { return SaysFiles(L"1 File"); }, drop({L"in\\three.txt", L"ONE.aaa", L"in"}),
         [] { return SaysFiles(L"2 Files"); }},
        IDCANCEL);
    EXPECT_EQ(files.Count(), 2);
    EXPECT_EQ(files[1].sourcePath, folder + L"in\\two.AAA");
}

TEST_F(SourceFiles, TakesWhatAnotherStartHandsOver) {
    Make(L"list.txt", L"Q:\\b.wav\r\nQ:\\a.wav\r\n\r\nQ:\\B.WAV\r\n");
    Make(L"more.txt", L"Q:\\c.wav\r\n");
    const XString list = folder + L"list.txt", more = folder + L"more.txt";
    EXPECT_FALSE(TryHandOff(list)); // before the form
    Run({[&] { return TryHandOff(list); }, [] { return SaysFiles(L"2 Files"); },
         [&] { return TryHandOff(more); }, [] { return SaysFiles(L"3 Files"); }},
        IDCANCEL);
    EXPECT_FALSE(TryHandOff(more)); // after it
    EXPECT_EQ(files[0].sourcePath, XString(L"Q:\\a.wav"));
    EXPECT_TRUE(IsFile(list)); // the sender's own
}

// The list form reads the files ahead on a thread of its own: they must not become more meanwhile.
TEST_F(SourceFiles, WaitWhileTheyAreListed) {
    Make(L"list.txt", L"Q:\\b.wav\r\n");
    const XString list = folder + L"list.txt";
    files.Append()->sourcePath = L"Q:\\a.wav";
    HWND review = nullptr;
    Run({Press(ID_LIST_RENAME),
         [&] {
             review = GetLastActivePopup(Form());
             return review != Form() && IsWindowVisible(review) && TryHandOff(list);
         },
         [start = GetTickCount()] { return GetTickCount() - start > 1300; },
         [&] {
             EXPECT_EQ(files.Count(), 1);
             return PostMessageW(review, WM_COMMAND, IDCANCEL, 0) != 0;
         },
         [] { return SaysFiles(L"2 Files"); }},
        IDCANCEL);
}

} // namespace
