#include "forms/setup/frmNewProfile.h"

#include "host/EncoderItem.h"
#include "resources/ids.h"

namespace {

constexpr wchar_t prompt[] = L"<type profile name>";
constexpr int longestName = 999; // units

} // namespace

frmNewProfile::frmNewProfile(HWND parent, XString& itemText, const XString& encoderName,
                             const XStringArray& existing)
    : EncoderName(encoderName) {
    Existing.CopyFrom(existing);
    itemText.Clear();
    if (ShowModal(ID_DIALOG_NEW_PROFILE, parent) > 0)
        itemText = Result;
}

frmNewProfile::~frmNewProfile() {
    Destroy();
}

void frmNewProfile::OnClose() {
    EndDialog(Hwnd, 0);
}

void frmNewProfile::OnCancel() {
    EndDialog(Hwnd, 0);
}

// Comes again, with a reason, when the owner is restored from the task bar.
void frmNewProfile::OnShow(LPARAM reason) {
    if (reason != 0) {
        Handled = 0;
        return;
    }
    const HWND edit = Control(ID_PROFILE_NAME);
    SendMessageW(edit, EM_LIMITTEXT, longestName, 0);
    SetWindowTextW(edit, prompt);
    SendMessageW(edit, EM_SETSEL, 0, -1);
    XString encoder;
    encoder.Format(L"'%s'", EncoderName.Text());
    SetWindowTextW(Control(ID_PROFILE_ENCODER), encoder);
    SetFocus(edit);
}

LRESULT frmNewProfile::PreMessage(HWND, UINT message, WPARAM wParam, LPARAM, std::uint32_t&) {
    if (message == WM_COMMAND && wParam == MAKEWPARAM(ID_PROFILE_NAME, EN_CHANGE)) {
        const XString name = TypedName();
        EnableWindow(Control(IDOK), !name.IsEmpty() && !name.Equals(prompt));
    }
    return 0;
}

void frmNewProfile::OnOK() {
    Result = ProfileItemText(TypedName(), EncoderName);
    if (Existing.Contains(Result, true)) {
        MessageBoxW(Hwnd, L"A profile already exists with this name.", L"Zephtone", MB_OK);
        return;
    }
    EndDialog(Hwnd, 1);
}

XString frmNewProfile::TypedName() const {
    wchar_t name[longestName + 1] = L"";
    GetWindowTextW(Control(ID_PROFILE_NAME), name, longestName + 1);
    return name;
}
