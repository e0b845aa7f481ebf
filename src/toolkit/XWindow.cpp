// The native window of a form: making, moving and ending it, its timers and icons.
#include "toolkit/XWindow.h"

#include "toolkit/XToolkitState.h"
#include "toolkit/XWindowProcedures.h"

#include <shellapi.h>

#include <algorithm>
#include <utility>

XWindow::XWindow() {
    Toolkit();
    Lock.Create();
}

XWindow::~XWindow() {
    Destroy();
}

void XWindow::Create(const wchar_t* title, const RECT& rectangle, DWORD style, DWORD extendedStyle,
                     HWND parent, UINT classStyle) {
    Destroy();
    XString name(L"XWnd");
    {
        XLocked lock(Toolkit().WindowListLock);
        name += UnsignedText(Toolkit().WindowClassCounter++);
    }
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    WNDCLASSEXW record{};
    static_assert(sizeof(record) == 80);
    record.cbSize = sizeof(record);
    record.style = classStyle;
    record.lpfnWndProc = XWindowProcedures::Plain;
    record.hInstance = instance;
    record.hIcon = LoadIconW(nullptr, MAKEINTRESOURCEW(32512)); // the standard application icon
    record.lpszClassName = name;
    if (!RegisterClassExW(&record))
        return;
    ClassName = name;
    Hwnd = CreateWindowExW(extendedStyle, ClassName, title, style, rectangle.left, rectangle.top,
                           rectangle.right - rectangle.left, rectangle.bottom - rectangle.top, parent,
                           nullptr, instance, this);
}

void XWindow::Destroy() {
    if (Hwnd) {
        ShowWindow(Hwnd, SW_HIDE);
        {
            XLocked lock(Lock);
            for (clWindowTimer& timer : Timers)
                KillTimer(Hwnd, timer.Id);
            CurrentTimer = nullptr;
            Timers.Clear();
            TimerNames.Clear();
        }
        DestroyWindow(Hwnd);
    }
    if (!ClassName.IsEmpty()) {
        UnregisterClassW(ClassName, GetModuleHandleW(nullptr));
        ClassName.Clear();
    }
    XWindowProcedures::Forget(this);
    Hwnd = nullptr;
}

INT_PTR XWindow::ShowModal(int resourceId, HWND parent) {
    Destroy();
    const INT_PTR ended = DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(resourceId), parent,
                                          XWindowProcedures::Dialog, reinterpret_cast<LPARAM>(this));
    Destroy(); // the system has ended the window: its handle and its timers are void
    return ended;
}

INT_PTR XWindow::ShowModal(const DLGTEMPLATE* dialog, HWND parent) {
    Destroy();
    const INT_PTR ended = DialogBoxIndirectParamW(GetModuleHandleW(nullptr), dialog, parent,
                                                  XWindowProcedures::Dialog, reinterpret_cast<LPARAM>(this));
    Destroy();
    return ended;
}

bool XWindow::ShowModeless(int resourceId, HWND parent) {
    Destroy();
    return CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(resourceId), parent,
                              XWindowProcedures::Dialog, reinterpret_cast<LPARAM>(this)) != nullptr;
}

bool XWindow::ShowModeless(const DLGTEMPLATE* dialog, HWND parent) {
    Destroy();
    return CreateDialogIndirectParamW(GetModuleHandleW(nullptr), dialog, parent, XWindowProcedures::Dialog,
                                      reinterpret_cast<LPARAM>(this)) != nullptr;
}

std::uint64_t XWindow::AddTimer(UINT intervalMs, std::uint64_t id) {
    if (!Hwnd)
        return 0;
    XLocked lock(Lock);
    if (id == 0) {
        for (clWindowTimer& timer : Timers) {
            CurrentTimer = &timer;
            id = std::max(id, timer.Id);
        }
        ++id;
    }
    const std::uint64_t made = SetTimer(Hwnd, id, intervalMs, nullptr);
    if (made == 0)
        return 0;
    CurrentTimer = Timers.AddNew();
    CurrentTimer->Id = made;
    TimerNames.AddString(L"");
    return made;
}

void XWindow::MoveTo(int x, int y, int width, int height) {
    if (!Hwnd)
        return;
    RECT now{};
    GetWindowRect(Hwnd, &now);
    if (GetWindowLongPtrW(Hwnd, GWL_STYLE) & WS_CHILD) // positions of a child are its parent's
        MapWindowPoints(nullptr, GetParent(Hwnd), reinterpret_cast<POINT*>(&now), 2);
    const auto choose = [](int wanted, LONG current) {
        return wanted == keepPosition ? static_cast<int>(current) : wanted;
    };
    SetWindowPos(Hwnd, nullptr, choose(x, now.left), choose(y, now.top), choose(width, now.right - now.left),
                 choose(height, now.bottom - now.top), SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

void XWindow::CentreOnDesktop() {
    if (!Hwnd)
        return;
    RECT desktop{};
    RECT window{};
    GetClientRect(GetDesktopWindow(), &desktop);
    GetWindowRect(Hwnd, &window);
    MoveTo(desktop.right / 2 - (window.right - window.left) / 2,
           desktop.bottom / 2 - (window.bottom - window.top) / 2, keepPosition, keepPosition);
}

void XWindow::ReplaceClassIcon(HICON given, XIcon& kept, int classIndex) {
    XIcon copy(DuplicateIcon(GetModuleHandleW(nullptr), given));
    SetClassLongPtrW(Hwnd, classIndex, reinterpret_cast<LONG_PTR>(copy.Get()));
    kept = std::move(copy); // only now may the icon that the class had before go
    if (given)
        DestroyIcon(given);
}

void XWindow::SetIcons(HICON icon, HICON smallIcon) {
    if (!Hwnd)
        return;
    ReplaceClassIcon(icon, Icon, GCLP_HICON);
    ReplaceClassIcon(smallIcon, SmallIcon, GCLP_HICONSM);
}

HWND XWindow::Control(int id) const noexcept {
    return Hwnd ? GetDlgItem(Hwnd, id) : nullptr;
}

int ScaleToDpi(int value) {
    std::uint32_t& dpi = Toolkit().ScreenDpi;
    if (dpi == 0xFFFFFFFF) {
        const HDC screen = GetDC(nullptr);
        dpi = static_cast<std::uint32_t>(GetDeviceCaps(screen, LOGPIXELSX));
        ReleaseDC(nullptr, screen);
    }
    return static_cast<int>(static_cast<std::int64_t>(dpi) * value / 96);
}

bool SetTextIfChanged(HWND control, XString& shown, const wchar_t* text) {
    if (shown.Equals(text))
        return false;
    shown = text;
    if (control)
        SetWindowTextW(control, shown);
    return true;
}
