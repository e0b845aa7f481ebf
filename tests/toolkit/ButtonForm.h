// A form with drawn buttons that write down what happens to them.
#pragma once

#include "Recorder.h"
#include "toolkit/XButtonGroup.h"

#include <functional>

class NotingButton : public XButton {
public:
    explicit NotingButton(std::string& log) : log(log) {}
    void OnClick(bool right) override {
        log += right ? "rclick " : "click ";
        if (onClick)
            onClick();
    }
    void OnRepeat(bool still) override { log += still ? "still " : "repeat "; }
    void OnPress(bool right) override {
        log += right ? "rpress " : "press ";
        if (onPress)
            onPress();
    }
    void OnReleaseOutside(bool right) override { log += right ? "routside " : "outside "; }
    std::string& log;
    std::function<void()> onClick, onPress;
};

class ButtonForm final : public XWindow {
public:
    ButtonForm() {
        alignas(DWORD) static const EmptyDialog dialog;
        if (!ShowModeless(&dialog.head, nullptr))
            return;
        SetWindowPos(Hwnd, HWND_TOPMOST, 200, 300, 400, 200, SWP_SHOWWINDOW);
        SetForegroundWindow(Hwnd);
        Buttons.Create(Hwnd);
    }
    ~ButtonForm() override { Destroy(); }
    void OnDestroy() override { Buttons.Clear(); }
    void OnOK() override { log += "ok "; }
    void OnCancel() override { log += "cancel "; }
    LRESULT PreMessage(HWND hwnd, UINT message, WPARAM w, LPARAM l, std::uint32_t& handled) override {
        if (message == WM_INITMENUPOPUP) {
            log += "menu ";
            EndMenu();
        }
        return Buttons.OnParentMessage(hwnd, message, w, l, handled);
    }
    void Add(XButton& button, int x, const wchar_t* caption, std::uint32_t flags = 0, int menuId = 0) {
        Buttons.AddButton(button,
                          {.X = x,
                           .Y = 10,
                           .Width = 75,
                           .Height = 23,
                           .Caption = caption,
                           .Flags = flags,
                           .MenuId = menuId},
                          0, this);
    }
    // The cursor goes to client pixel (x, 20), for the system and for the form.
    void MoveTo(int x) {
        POINT p{x, 20};
        ClientToScreen(Hwnd, &p);
        SetCursorPos(p.x, p.y);
        Send(WM_MOUSEMOVE, x);
    }
    void Send(UINT message, int x) { SendMessageW(Hwnd, message, 0, MAKELPARAM(x, 20)); }
    void Click(int x) {
        MoveTo(x);
        Send(WM_LBUTTONDOWN, x);
        Send(WM_LBUTTONUP, x);
    }
    void Tick() { SendMessageW(Hwnd, WM_TIMER, Buttons.TimerId, 0); }
    // A key for the window that has the focus, as a modal loop hands it out.
    void Key(UINT message, WPARAM key, LPARAM flags = 0) {
        MSG m{};
        m.hwnd = GetFocus();
        m.message = message;
        m.wParam = key;
        m.lParam = flags;
        if (!IsDialogMessageW(Hwnd, &m))
            DispatchMessageW(&m);
    }
    void Press(WPARAM key) {
        Key(WM_KEYDOWN, key);
        Key(WM_KEYUP, key);
    }
    std::string Take() { return std::exchange(log, std::string()); }

    std::string log;
    XButtonGroup Buttons;
};
