// The list of files to convert and the overwrite form: as they open, resized, with an edit and with the menu.
#include "FormScreens.h"

#include "forms/review/frmListNRename.h"
#include "forms/review/frmOverwrite.h"
#include "resources/ids.h"

namespace {

constexpr const wchar_t* songs[] = {L"01 - Overture",
                                    L"02 - The Long Way Home (Live at the Old Harbour Theatre)",
                                    L"03 - Intermezzo", L"04 - \u00C9tude in D\u266F"};
using Step = FormDriver::Step;

HWND List() {
    const HWND list = GetDlgItem(FindForm(ID_FILE_LIST), ID_FILE_LIST);
    return list ? list : GetDlgItem(FindForm(ID_OVERWRITE_LIST), ID_OVERWRITE_LIST);
}
HWND Form() {
    return GetParent(List());
}
void SelectRow(int row) {
    ListView_SetItemState(List(), row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
}

void ShowFiles(std::vector<Step> steps) {
    constexpr const wchar_t* extensions[] = {L".flac", L".flac", L".mp3", L".wav"};
    clFileList files;
    std::uint64_t lengthMs = 61000;
    for (const wchar_t* album : {L"First Light", L"Second Thoughts", L"Third Time", L"Fourth Wall"})
        for (int song = 0; song < 4; ++song) {
            clFileItem* file = files.Append();
            file->sourcePath = XString(L"C:\\Users\\Someone\\Music\\The Example Orchestra\\") + album +
                               L"\\" + songs[song] + extensions[song];
            file->format.lengthMs = lengthMs += 37000;
            file->format.sampleKind = ztSampleInteger;
            file->format.sampleBytes = 4;
            file->format.channels = 2;
            file->format.frequency = 44100;
            file->format.bitsPerSample = 16;
            file->SetStage(stageTags);
        }
    files[5].skipFlag = 1;
    steps.insert(steps.begin(), [] {
        if (!List() || !IsWindowVisible(List()) || TextOf(Form(), ID_LIST_SUMMARY).Find(L"Total") == 0)
            return false;
        SelectRow(1);
        SelectRow(2);
        return true;
    });
    const FormDriver driver = HoldAfter(std::move(steps));
    int result = 0;
    const frmListNRename form(result, nullptr, files, L"FLAC", L"C:\\Converted", L"", L"");
}

void ShowExisting(std::vector<Step> steps) {
    XArray<clOverwriteItem> rows;
    for (const wchar_t* album : {L"First Light", L"Second Thoughts"})
        for (const wchar_t* song : songs)
            rows.AddNew()->path = XString(L"C:\\Users\\Someone\\Music\\Converted\\The Example Orchestra\\") +
                                  album + L"\\" + song + L".mp3";
    steps.insert(steps.begin(), [] {
        if (!List() || !IsWindowVisible(List()))
            return false;
        for (const int row : {1, 2}) {
            SelectRow(row);
            ListView_SetCheckState(List(), row, FALSE);
        }
        return true;
    });
    const FormDriver driver = HoldAfter(std::move(steps));
    int result = 0;
    const frmOverwrite form(result, nullptr, rows, L"MP3");
}

Step Resize(int width, int height) {
    return [=] {
        ShowWindow(Form(), SW_RESTORE);
        return SetWindowPos(Form(), nullptr, 20, 20, width, height, SWP_NOZORDER) != 0;
    };
}
bool StartRenaming() {
    ListView_SetSelectionMark(List(), 2);
    SendMessageW(List(), WM_KEYDOWN, VK_F2, 0);
    return true;
}
bool OpenRowMenu() {
    return PostMessageW(List(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(List()), MAKELPARAM(-1, -1)) != 0;
}

} // namespace

void ShowList() {
    ShowFiles({});
}
void ShowListSmall() {
    ShowFiles({Resize(580, 300)});
}
void ShowListLeast() {
    ShowFiles({Resize(1, 1)});
}
void ShowListRename() {
    ShowFiles({Resize(1000, 420), StartRenaming});
}
void ShowListMenu() {
    ShowFiles({OpenRowMenu, IsMenuOpen});
}

void ShowOverwrite() {
    ShowExisting({});
}
void ShowOverwriteSmall() {
    ShowExisting({Resize(1, 1)});
}
void ShowOverwriteRename() {
    ShowExisting({StartRenaming, Resize(1200, 700)});
}
void ShowOverwriteMenu() {
    ShowExisting({OpenRowMenu, IsMenuOpen});
}
