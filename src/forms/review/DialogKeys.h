// Keyboard navigation for a dialog that lives in the message loop of another one.
#pragma once

#include "foundation/XHandles.h"

#include <windows.h>

struct HookKind {
    using Value = HHOOK;
    static Value None() noexcept { return nullptr; }
    static void Close(Value v) noexcept { UnhookWindowsHookEx(v); }
};

// The loop of a modal dialog moves the focus and presses default buttons in its own dialog only. It
// offers every message to the thread's message filter first, and that is where this object steps
// in. One dialog of the process at a time: the last one attached. Forms' thread only.
class clDialogKeys {
public:
    clDialogKeys() = default;
    ~clDialogKeys() { Detach(); }
    clDialogKeys(const clDialogKeys&) = delete;
    clDialogKeys& operator=(const clDialogKeys&) = delete;

    void Attach(HWND dialog); // no effect on the keyboard if the hook can't be had
    void Detach() noexcept;

private:
    static LRESULT CALLBACK Filter(int code, WPARAM wParam, LPARAM lParam) noexcept;

    XOwned<HookKind> hook;
};
