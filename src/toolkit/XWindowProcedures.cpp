// Where the system hands over its messages.
#include "toolkit/XWindowProcedures.h"

#include "toolkit/XToolkitState.h"

#include <atomic>

namespace {

std::atomic<std::uint32_t> listChanges{0};

// The window that this thread's last message was for: a control with many rows tells its form of each,
// and taking the lock costs more than all the rest.
struct LastFound {
    XWindow* window = nullptr;
    std::uint32_t changes = 0; // listChanges when it was found
};
thread_local LastFound lastFound;

} // namespace

LRESULT CALLBACK XWindowProcedures::Plain(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_CREATE)
        if (const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam); creation->lpCreateParams)
            static_cast<XWindow*>(creation->lpCreateParams)->Register(hwnd, false);
    if (XWindow* window = Find(hwnd))
        return window->Dispatch(hwnd, message, wParam, lParam);
    return DefWindowProcW(hwnd, message, wParam, lParam);
}

INT_PTR CALLBACK XWindowProcedures::Dialog(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_INITDIALOG && lParam)
        reinterpret_cast<XWindow*>(lParam)->Register(hwnd, true);
    if (XWindow* window = Find(hwnd))
        return window->Dispatch(hwnd, message, wParam, lParam);
    return 0;
}

void XWindowProcedures::Enlist(XWindow* window) {
    XLocked lock(Toolkit().WindowListLock);
    Toolkit().LiveWindows.Add(window);
    ++listChanges;
}

void XWindowProcedures::Forget(const XWindow* window) {
    XLocked lock(Toolkit().WindowListLock);
    XPointerSlots& windows = Toolkit().LiveWindows;
    for (std::int64_t i = 0; i < windows.count; ++i)
        if (windows.items[i] == window) {
            windows.RemoveAt(i);
            ++listChanges;
            return;
        }
}

XWindow* XWindowProcedures::Find(HWND hwnd) {
    if (lastFound.window && lastFound.changes == listChanges && lastFound.window->Hwnd == hwnd)
        return lastFound.window;
    XLocked lock(Toolkit().WindowListLock);
    const XPointerSlots& windows = Toolkit().LiveWindows;
    for (std::int64_t i = 0; i < windows.count; ++i)
        if (auto* window = static_cast<XWindow*>(windows.items[i]); window->Hwnd == hwnd) {
            lastFound = {window, listChanges};
            return window;
        }
    return nullptr;
}
