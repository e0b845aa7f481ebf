// A child dialog and its controls, spoken to by messages.
#include "plugins/common/PanelWindow.h"

#include "contract/Plugin.h"
#include "plugins/common/PanelTemplate.h"

#include <commctrl.h>

#include <algorithm>

namespace {

// This library, not the program that has loaded it.
HMODULE OwnModule() noexcept {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(&OwnModule), &module);
    return module;
}

// Asked for when a panel opens: the worker, which never opens one, is spared the library.
void RegisterSliders() noexcept {
    const HMODULE controls = LoadLibraryW(L"comctl32.dll"); // stays: windows of its classes live on
    if (!controls)
        return;
    using Register = BOOL(WINAPI*)(const INITCOMMONCONTROLSEX*);
    const auto initialise =
        reinterpret_cast<Register>(reinterpret_cast<void*>(GetProcAddress(controls, "InitCommonControlsEx")));
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_BAR_CLASSES | ICC_STANDARD_CLASSES};
    if (initialise)
        initialise(&classes);
}

// Where the panel's client area has to begin to be below this sibling.
LONG BottomOn(HWND parent, HWND sibling) noexcept {
    RECT area{};
    GetWindowRect(sibling, &area);
    MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&area), 2);
    return area.bottom;
}

} // namespace

PanelWindow::~PanelWindow() {
    if (window) {
        SetWindowLongPtrW(window, DWLP_USER, 0); // the derived part, which reads, is gone already
        DestroyWindow(window);
    }
}

void PanelWindow::Show(HWND parent, int x, int y, const wchar_t* text) {
    if (window)
        DestroyWindow(window);
    settings = text;
    if (!parent || !IsWindow(parent))
        return;
    RegisterSliders();
    const std::vector<unsigned char> bytes = PanelTemplate(OwnModule(), dialogId, parent);
    if (bytes.empty())
        return;
    CreateDialogIndirectParamW(OwnModule(), reinterpret_cast<const DLGTEMPLATE*>(bytes.data()), parent,
                               Procedure, reinterpret_cast<LPARAM>(this));
    if (!window)
        return;
    isFilling = true;
    Fill(SettingsText(settings));
    OnChanged(0);
    isFilling = false;
    SetWindowPos(window, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    TakePlaceInTabOrder();
    ShowWindow(window, SW_SHOWNA);
}

const wchar_t* PanelWindow::Remove(const void* parent) {
    if (window && parent == ztKeepPanel)
        Read();
    else if (window)
        DestroyWindow(window); // which reads
    return settings;
}

void PanelWindow::Read() {
    SettingsText text(settings);
    Collect(text);
    settings = text.Text();
}

// Tab follows the order of siblings. The panel goes behind those that lead the order and stand above
// it, thus first on a form that has only buttons below.
void PanelWindow::TakePlaceInTabOrder() const {
    const HWND parent = GetParent(window);
    RECT area{};
    GetWindowRect(window, &area);
    MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&area), 2);
    HWND above = HWND_TOP;
    for (HWND sibling = GetWindow(parent, GW_CHILD); sibling; sibling = GetWindow(sibling, GW_HWNDNEXT)) {
        if (sibling == window || !(GetWindowLongPtrW(sibling, GWL_STYLE) & WS_VISIBLE))
            continue;
        if (BottomOn(parent, sibling) > area.top)
            break;
        above = sibling;
    }
    SetWindowPos(window, above, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE);
}

INT_PTR CALLBACK PanelWindow::Procedure(HWND dialog, UINT message, WPARAM wide, LPARAM data) noexcept {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, data);
        reinterpret_cast<PanelWindow*>(data)->window = dialog;
        return FALSE; // the focus stays where it is
    }
    auto* panel = reinterpret_cast<PanelWindow*>(GetWindowLongPtrW(dialog, DWLP_USER));
    return panel ? panel->OnMessage(message, wide, data) : FALSE;
}

INT_PTR PanelWindow::OnMessage(UINT message, WPARAM wide, LPARAM data) {
    const int code = HIWORD(wide);
    switch (message) {
    case WM_COMMAND:
        // BN_CLICKED is 0, as is the code of an access key; CBN_SELCHANGE is 1, EN_CHANGE 0x300.
        if (!isFilling && (code == BN_CLICKED || code == CBN_SELCHANGE || code == EN_CHANGE))
            OnChanged(LOWORD(wide));
        return TRUE;
    case WM_HSCROLL:
        if (!isFilling && data)
            OnChanged(GetDlgCtrlID(reinterpret_cast<HWND>(data)));
        return TRUE;
    case WM_DESTROY: // the controls still stand
        Read();
        SetWindowLongPtrW(window, DWLP_USER, 0);
        window = nullptr;
        return FALSE;
    default:
        return FALSE;
    }
}

bool PanelWindow::IsChecked(int id) const noexcept {
    return IsDlgButtonChecked(window, id) == BST_CHECKED;
}

void PanelWindow::SetChecked(int id, bool on) const noexcept {
    CheckDlgButton(window, id, on ? BST_CHECKED : BST_UNCHECKED);
}

void PanelWindow::SetText(int id, const wchar_t* text) const {
    if (Text(id) != text)
        SetWindowTextW(Control(id), text);
}

XString PanelWindow::Text(int id) const {
    const HWND control = Control(id);
    XString text;
    text.SetLength(GetWindowTextLengthW(control));
    GetWindowTextW(control, text.Buffer(), text.Count() + 1);
    text.FitLength();
    return text;
}

void PanelWindow::AddItem(int id, const wchar_t* text, int number) const {
    const HWND list = Control(id);
    const LRESULT index = SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    if (index >= 0)
        SendMessageW(list, CB_SETITEMDATA, static_cast<WPARAM>(index), number);
}

void PanelWindow::AddNumbers(int id, const int* usual, int count, int present, const wchar_t* unit) const {
    std::vector<int> numbers(usual, usual + count);
    if (present != 0 && !std::binary_search(numbers.begin(), numbers.end(), present))
        numbers.insert(std::upper_bound(numbers.begin(), numbers.end(), present), present);
    for (const int number : numbers)
        AddItem(id, DecimalText(number) + unit, number);
}

int PanelWindow::FindItem(int id, int number) const {
    const HWND list = Control(id);
    const int count = static_cast<int>(SendMessageW(list, CB_GETCOUNT, 0, 0));
    for (int i = 0; i < count; ++i)
        if (SendMessageW(list, CB_GETITEMDATA, static_cast<WPARAM>(i), 0) == number)
            return i;
    return -1;
}

bool PanelWindow::HasItem(int id, int number) const {
    return FindItem(id, number) >= 0;
}

void PanelWindow::ChooseItem(int id, int number) const {
    const int index = FindItem(id, number);
    SendMessageW(Control(id), CB_SETCURSEL, static_cast<WPARAM>(index < 0 ? 0 : index), 0);
}

int PanelWindow::ChosenItem(int id) const {
    const HWND list = Control(id);
    const LRESULT index = SendMessageW(list, CB_GETCURSEL, 0, 0);
    return index < 0 ? 0
                     : static_cast<int>(SendMessageW(list, CB_GETITEMDATA, static_cast<WPARAM>(index), 0));
}

void PanelWindow::SetSlider(int id, int minimum, int maximum, int position) const {
    const HWND slider = Control(id);
    SendMessageW(slider, TBM_SETRANGE, FALSE, MAKELPARAM(minimum, maximum));
    SendMessageW(slider, TBM_SETPAGESIZE, 0, 1);
    SendMessageW(slider, TBM_SETPOS, TRUE, position);
}

int PanelWindow::Slider(int id) const noexcept {
    return static_cast<int>(SendMessageW(Control(id), TBM_GETPOS, 0, 0));
}
