// The procedure that stands before those of all subclassed controls.
#include "toolkit/XSubClassCtrl.h"

#include "toolkit/XToolkitState.h"

namespace {
LRESULT CALLBACK SubclassProcedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    XLocked lock(Toolkit().SubclassLock);
    auto* control = reinterpret_cast<XSubClassCtrl*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    if (!control || !control->OldProc)
        return 0;
    // Kept here, since the control may detach itself, or end, inside OnMessage.
    const WNDPROC oldProc = control->OldProc;
    std::uint32_t handled = 0;
    const LRESULT result = control->OnMessage(hwnd, message, wParam, lParam, handled);
    return handled ? result : CallWindowProcW(oldProc, hwnd, message, wParam, lParam);
}
} // namespace

XSubClassCtrl::XSubClassCtrl() {
    Toolkit();
}

XSubClassCtrl::~XSubClassCtrl() {
    Detach();
}

LRESULT XSubClassCtrl::OnMessage(HWND, UINT, WPARAM, LPARAM, std::uint32_t&) {
    return 0;
}

void XSubClassCtrl::Attach(HWND hwnd) {
    Detach();
    if (!hwnd)
        return;
    XLocked lock(Toolkit().SubclassLock);
    Hwnd = hwnd;
    SetWindowLongPtrW(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    OldProc = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(SubclassProcedure)));
    if (!OldProc) {
        SetWindowLongPtrW(hwnd, GWLP_USERDATA, 0);
        Hwnd = nullptr;
    }
}

void XSubClassCtrl::Detach() {
    if (!Hwnd)
        return;
    XLocked lock(Toolkit().SubclassLock);
    SetWindowLongPtrW(Hwnd, GWLP_USERDATA, 0);
    SetWindowLongPtrW(Hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(OldProc));
    OldProc = nullptr;
    Hwnd = nullptr;
}
