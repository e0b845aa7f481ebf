// The filter of the thread's messages that serves one modeless dialog.
#include "forms/review/DialogKeys.h"

namespace {
HWND served = nullptr;
bool isInside = false; // the system's keyboard handling asks the filter again
} // namespace

void clDialogKeys::Attach(HWND dialog) {
    Detach();
    served = dialog;
    hook.Reset(SetWindowsHookExW(WH_MSGFILTER, Filter, nullptr, GetCurrentThreadId()));
}

void clDialogKeys::Detach() noexcept {
    if (!hook.IsValid())
        return;
    hook.Reset();
    served = nullptr;
}

LRESULT CALLBACK clDialogKeys::Filter(int code, WPARAM wParam, LPARAM lParam) noexcept {
    auto* message = reinterpret_cast<MSG*>(lParam);
    if (code == MSGF_DIALOGBOX && !isInside && message->message >= WM_KEYFIRST &&
        message->message <= WM_KEYLAST && (message->hwnd == served || IsChild(served, message->hwnd))) {
        isInside = true;
        const BOOL done = IsDialogMessageW(served, message);
        isInside = false;
        if (done)
            return TRUE;
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}
