// The list of files to convert as it opens, resized, with an edit and with its menu.
#include "FormScreens.h"

#include "forms/review/frmListNRename.h"
#include "resources/ids.h"

namespace {

HWND Form() {
    return FindForm(ID_FILE_LIST);
}
HWND List() {
    return GetDlgItem(Form(), ID_FILE_LIST);
}

void ShowHeld(const FormDriver::Step& prepare, const FormDriver::Step& hold) {
    const wchar_t* names[] = {L"01 - Overture.flac",
                              L"02 - The Long Way Home (Live at the Old Harbour Theatre).flac",
                              L"03 - Intermezzo.mp3", L"04 - \u00C9tude in D\u266F.wav"};
    clFileList files;
    std::uint64_t lengthMs = 61000;
    for (const wchar_t* album : {L"First Light", L"Second Thoughts", L"Third Time", L"Fourth Wall"})
        for (const wchar_t* name : names) {
            clFileItem* file = files.Append();
            file->sourcePath =
                XString(L"C:\\Users\\Someone\\Music\\The Example Orchestra\\") + album + L"\\" + name;
            file->format.lengthMs = lengthMs += 37000;
            file->format.sampleKind = ztSampleInteger;
            file->format.sampleBytes = 4;
            file->format.channels = 2;
            file->format.frequency = 44100;
            file->format.bitsPerSample = 16;
            file->SetStage(stageTags);
        }
    files[5].skipFlag = 1;
    const auto select = [] {
        if (!Form() || !IsWindowVisible(List()) || TextOf(Form(), ID_LIST_SUMMARY).Find(L"Total") == 0)
            return false;
        for (const int row : {1, 2})
            ListView_SetItemState(List(), row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        return true;
    };
    const FormDriver driver({select, prepare, hold}, 60000);
    int result = 0;
    const frmListNRename form(result, nullptr, files, L"FLAC", L"C:\\Converted", L"", L"");
}

FormDriver::Step Resize(int width, int height) {
    return [=] {
        ShowWindow(Form(), SW_RESTORE);
        return SetWindowPos(Form(), nullptr, 20, 20, width, height, SWP_NOZORDER) != 0;
    };
}

} // namespace

void ShowList(const FormDriver::Step& hold) {
    ShowHeld([] { return true; }, hold);
}

void ShowListSmall(const FormDriver::Step& hold) {
    ShowHeld(Resize(580, 300), hold);
}

void ShowListLeast(const FormDriver::Step& hold) {
    ShowHeld(Resize(1, 1), hold);
}

void ShowListRename(const FormDriver::Step& hold) {
    ShowHeld(
        [] {
            Resize(1000, 420)();
            ListView_SetSelectionMark(List(), 2);
            SendMessageW(List(), WM_KEYDOWN, VK_F2, 0);
            return true;
        },
        hold);
}

void ShowListMenu(const FormDriver::Step& hold) {
    ShowHeld(
        [] {
            return PostMessageW(List(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(List()),
                                MAKELPARAM(-1, -1)) != 0;
        },
        [hold] { return FindWindowW(L"#32768", nullptr) && hold(); });
}
