// What the edit of a drop list does beyond editing: completion, and Enter that moves on.
#include "toolkit/EditCompletion.h"
#include "toolkit/PrefixCompletion.h"
#include "toolkit/XDropList.h"

LRESULT XDropList::OnMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, std::uint32_t& handled) {
    switch (message) {
    case WM_GETDLGCODE:
        if (const auto* key = reinterpret_cast<const MSG*>(lParam);
            key && key->message == WM_KEYDOWN && key->wParam == VK_RETURN && TakesEnter()) {
            handled = 1;
            return CallWindowProcW(OldProc, hwnd, message, wParam, lParam) | DLGC_WANTMESSAGE;
        }
        break;
    case WM_KEYDOWN:
        if (wParam == VK_RETURN && (Enter || TakesEnter()))
            Enter = handled = 1;
        break;
    case WM_CHAR:
        if (wParam == VK_RETURN && Enter)
            handled = 1; // the edit would beep
        break;
    case WM_KEYUP:
        if (wParam == VK_RETURN && Enter) {
            handled = 1;
            MoveOn();
        } else if (IsCompletingKey(wParam)) {
            Complete();
        }
        break;
    case WM_KILLFOCUS:
        Enter = 0;
        DropSuggestedTail(hwnd);
        break;
    default:
        break;
    }
    return 0;
}

void XDropList::Complete() {
    const XString typed = TypedText(Edit);
    const std::int64_t index = FindCompletion(
        typed, Rows.Count(), [this](std::int64_t i) -> const wchar_t* { return Rows[i].Text; });
    if (index >= 0)
        SuggestTail(Combo, typed, Rows[index].Text);
}

// An open list takes Enter itself; in the middle of the text Enter is the dialog's.
bool XDropList::TakesEnter() const {
    DWORD end = 0;
    SendMessageW(Edit, EM_GETSEL, 0, reinterpret_cast<LPARAM>(&end));
    return static_cast<int>(end) == GetWindowTextLengthW(Edit) &&
           !SendMessageW(Combo, CB_GETDROPPEDSTATE, 0, 0);
}

void XDropList::MoveOn() {
    Enter = 0;
    // Without a selection a suggested tail is taken, not dropped on the way out.
    const int length = GetWindowTextLengthW(Edit);
    SendMessageW(Edit, EM_SETSEL, static_cast<WPARAM>(length), length);
    const HWND parent = GetParent(Combo);
    const HWND next = GetNextDlgTabItem(parent, Combo, FALSE);
    SendMessageW(parent, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE);
    if (next && GetFocus() != next)
        SetFocus(next); // the parent is no dialog
}
