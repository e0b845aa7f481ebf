// The open-file dialog itself, driven from inside its own loop.
#include "../forms/FormDriver.h"

#include "app/FileDialog.h"
#include "app/StartUp.h"
#include "foundation/XFileSystem.h"
#include "foundation/XHandles.h"
#include "host/PluginFolders.h"
#include "host/Settings.h"

#include <gtest/gtest.h>

namespace {

constexpr int nameEdit = 0x480;  // edt1 of the dialog
constexpr int nameCombo = 0x47C; // cmb13, where there is no edit
constexpr int kindCombo = 0x470; // cmb1

class FileDialog : public testing::Test {
protected:
    void SetUp() override {
        folder = TempFolder() + L"TmDialog" + DecimalText(GetCurrentProcessId()) + L"\\";
        ASSERT_TRUE(MakeFolders(folder));
        SetPluginRoot(folder); // without decoders
        for (const wchar_t* name : {L"one song.wav", L"two.wav"}) {
            const XFileHandle file(
                CreateFileW(folder + name, GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
            ASSERT_TRUE(file.IsValid());
        }
    }
    void TearDown() override {
        SetCurrentDirectoryW(ProgramFolder()); // the dialog moves into the folder
        SetPluginRoot(nullptr);
        DeleteTree(folder);
    }
    // Steps: the dialog is there; its names are typed and a button is pressed; it is gone again.
    void Answer(std::vector<FormDriver::Step>& steps, const XString& names, int button) {
        steps.push_back([this] {
            const HWND found = FindForm(kindCombo);
            if (!found || found == dialog || !IsWindowVisible(found))
                return false;
            dialog = found;
            return true;
        });
        steps.push_back([this, names, button] {
            title = TextOf(dialog);
            shownKind = TextOf(dialog, kindCombo);
            const int control = GetDlgItem(dialog, nameEdit) ? nameEdit : nameCombo;
            SetDlgItemTextW(dialog, control, names);
            PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED), 0);
        });
    }
    TestSettings settings;
    XString folder;
    HWND dialog = nullptr;
    XString title, shownKind;
    clFileList files;
};

TEST_F(FileDialog, TakesSeveralFilesAndRemembersTheFolder) {
    RegWriteString(folder, Setting::lastAccessedFolder); // only the names are typed
    files.Append()->sourcePath = folder + L"two.wav";    // no test for duplicates
    std::vector<FormDriver::Step> steps;
    Answer(steps, L"\"two.wav\" \"one song.wav\"", IDOK);
    const FormDriver driver(std::move(steps));
    ShowFileDialog(files);
    EXPECT_TRUE(driver.IsDone());
    EXPECT_EQ(title, XString(L"Zephtone Tonemill: Select Audio File(s)"));
    EXPECT_EQ(shownKind, XString(L"All Audio Files"));
    ASSERT_EQ(files.Count(), 3);
    EXPECT_TRUE(files[1].sourcePath.EqualsNoCase(folder + L"two.wav"));
    EXPECT_TRUE(files[2].sourcePath.EqualsNoCase(folder + L"one song.wav"));
    EXPECT_TRUE(RegReadString(Setting::lastAccessedFolder).EqualsNoCase(folder));
}

// With one name only: Wine minds the buffer's size for one, and writes past its end for several.
TEST_F(FileDialog, AsksAgainWithALargerBuffer) {
    std::vector<FormDriver::Step> steps;
    for (int time = 0; time < 3; ++time)
        Answer(steps, folder + L"two.wav", IDOK);
    const FormDriver driver(std::move(steps));
    ShowFileDialog(files, 8);
    EXPECT_GE(driver.StepsDone(), 4U); // more than one dialog, how many hangs on the path
    ASSERT_EQ(files.Count(), 1);
    EXPECT_TRUE(files[0].sourcePath.EqualsNoCase(folder + L"two.wav"));
}

TEST_F(FileDialog, CancelledItEndsTheProgram) {
    std::vector<FormDriver::Step> steps;
    Answer(steps, folder + L"two.wav", IDCANCEL);
    const FormDriver driver(std::move(steps));
    EXPECT_FALSE(GatherFiles(clCommandLine(), files));
    EXPECT_TRUE(driver.IsDone());
    EXPECT_EQ(files.Count(), 0);
    EXPECT_TRUE(RegReadString(Setting::lastAccessedFolder).IsEmpty());
}

} // namespace
