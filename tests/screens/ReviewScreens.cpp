// The overwrite form as it opens, small, large, and with its menu.
#include "FormScreens.h"

#include "forms/review/frmOverwrite.h"
#include "resources/ids.h"

namespace {

HWND Form() {
    return FindForm(ID_OVERWRITE_LIST);
}
HWND List() {
    return GetDlgItem(Form(), ID_OVERWRITE_LIST);
}

void ShowHeld(const FormDriver::Step& prepare, const FormDriver::Step& hold) {
    const wchar_t* names[] = {L"01 - Overture", L"02 - The Long Way Home (Live at the Old Harbour Theatre)",
                              L"03 - Intermezzo", L"04 - \u00C9tude in D\u266F"};
    XArray<clOverwriteItem> rows;
    for (const wchar_t* album : {L"First Light", L"Second Thoughts"})
        for (const wchar_t* name : names)
            rows.AddNew()->path = XString(L"C:\\Users\\Someone\\Music\\Converted\\The Example Orchestra\\") +
                                  album + L"\\" + name + L".mp3";
    const auto select = [] {
        if (!Form() || !IsWindowVisible(List()))
            return false;
        for (const int row : {1, 2}) {
            ListView_SetItemState(List(), row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
            ListView_SetCheckState(List(), row, FALSE);
        }
        return true;
    };
    const FormDriver driver({select, prepare, hold}, 60000);
    int result = 0;
    const frmOverwrite form(result, nullptr, rows, L"MP3");
}

FormDriver::Step Resize(int width, int height) {
    return [=] { return SetWindowPos(Form(), nullptr, 20, 20, width, height, SWP_NOZORDER) != 0; };
}

} // namespace

void ShowOverwrite(const FormDriver::Step& hold) {
    ShowHeld([] { return true; }, hold);
}

void ShowOverwriteSmall(const FormDriver::Step& hold) {
    ShowHeld(Resize(1, 1), hold);
}

void ShowOverwriteRename(const FormDriver::Step& hold) {
    ShowHeld(
        [] {
            ListView_SetSelectionMark(List(), 2);
            SendMessageW(List(), WM_KEYDOWN, VK_F2, 0);
            return Resize(1200, 700)();
        },
        hold);
}

void ShowOverwriteMenu(const FormDriver::Step& hold) {
    ShowHeld(
        [] {
            return PostMessageW(List(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(List()),
                                MAKELPARAM(-1, -1)) != 0;
        },
        [hold] { return FindWindowW(L"#32768", nullptr) && hold(); });
}
