// One drawn button: its keys, its popup menu and what else happens on its own window.
#include "toolkit/XButton.h"

#include "toolkit/XButtonGroup.h"
#include "toolkit/XToolTip.h"

std::uint8_t XButton::ShowFocus = 0;

XButton::XButton() = default;

XButton::~XButton() {
    if (Group)
        Group->RemoveButton(*this);
}

void XButton::OnClick(bool) {}
void XButton::OnRepeat(bool) {}
void XButton::OnPress(bool) {}
void XButton::OnReleaseOutside(bool) {}

bool XButton::IsEnabled() const {
    return Window && IsWindowEnabled(Window);
}

void XButton::SetToggle(bool down) {
    Toggle = down;
    Redraw();
}

void XButton::Enable(bool enabled) {
    if (!Window)
        return;
    if (!enabled && GetFocus() == Window) // else no key would reach the form any more
        SendMessageW(GetParent(Window), WM_NEXTDLGCTL, 0, FALSE);
    EnableWindow(Window, enabled); // draws through WM_ENABLE
}

void XButton::Focus() {
    if (Window && TakesFocus())
        SetFocus(Window);
}

void XButton::Place(int x, int y, int width, int height) {
    if (Window)
        SetWindowPos(Window, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

LRESULT XButton::OnMessage(HWND, UINT message, WPARAM wParam, LPARAM lParam, std::uint32_t& handled) {
    const bool isPressKey = wParam == VK_SPACE || wParam == VK_RETURN;
    switch (message) {
    case WM_GETDLGCODE: // Return presses this button and not the dialog's default one
        handled = 1;
        return wParam == VK_RETURN ? DLGC_WANTALLKEYS : DLGC_BUTTON;
    case WM_KEYDOWN:
        if (isPressKey)
            KeyPressed();
        break;
    case WM_KEYUP:
        if (isPressKey)
            KeyReleased();
        else if (wParam == VK_TAB) {
            ShowFocus = 1;
            Redraw();
        }
        break;
    case BM_CLICK: // the access key, or a helper for people who cannot use a mouse
        handled = 1;
        Push();
        break;
    case WM_KILLFOCUS:
        KeyDown = 0; // the release goes to another window
        Settle();
        Redraw();
        break;
    case WM_SETFOCUS:
    case WM_ENABLE:
        Redraw();
        break;
    case WM_ERASEBKGND: // all of it is drawn at once
        handled = 1;
        return 1;
    case WM_SIZE:
        Width = LOWORD(lParam);
        Height = HIWORD(lParam);
        InvalidateRect(Window, nullptr, FALSE);
        break;
    case WM_NCDESTROY:
        Window = nullptr;
        Detach();
        break;
    default:
        break;
    }
    return 0;
}

void XButton::KeyPressed() {
    if (!IsEnabled() || KeyDown) // a held key repeats itself
        return;
    KeyDown = 1;
    Draw(nullptr, buttonPressed, true);
    if (!HasMenu()) {
        OnPress(false);
        return;
    }
    MSG character; // of this key: the menu would take it as the choice of nothing and close
    while (PeekMessageW(&character, Window, WM_CHAR, WM_CHAR, PM_REMOVE)) {
    }
    Popup(); // its loop takes the key's release
    KeyDown = 0;
    Settle();
}

void XButton::KeyReleased() {
    if (!KeyDown)
        return;
    KeyDown = 0;
    Settle();
    if (IsEnabled())
        OnClick(false);
}

void XButton::Push() {
    if (!IsEnabled())
        return;
    Focus();
    if (HasMenu())
        Popup();
    else
        OnClick(false);
}

void XButton::Settle() {
    if (Group)
        Group->UpdateHover();
}

void XButton::Popup() {
    XMenu loaded;
    if (!Menu)
        loaded.Reset(LoadMenuW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(MenuId)));
    const HMENU popup = GetSubMenu(Menu ? Menu : loaded.Get(), 0);
    if (!popup)
        return;
    RECT r{};
    GetWindowRect(Window, &r);
    TrackPopupMenu(popup, TPM_RIGHTBUTTON, r.left, r.bottom, 0, GetParent(Window), nullptr);
}
