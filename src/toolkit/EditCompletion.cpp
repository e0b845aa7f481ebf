// The messages to the combo's edit.
#include "toolkit/EditCompletion.h"

namespace {
struct Selection {
    DWORD start = 0, end = 0; // in characters; equal at a caret
};
Selection SelectionOf(HWND edit) {
    Selection selection;
    SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&selection.start),
                 reinterpret_cast<LPARAM>(&selection.end));
    return selection;
}
} // namespace

bool IsCompletingKey(WPARAM key) {
    const auto isKeyOf = [key](wchar_t ch) {
        const SHORT scanned = VkKeyScanW(ch);
        return scanned != -1 && LOBYTE(scanned) == key;
    };
    for (wchar_t ch = L'a'; ch <= L'z'; ++ch)
        if (isKeyOf(ch))
            return true;
    for (wchar_t ch = L'0'; ch <= L'9'; ++ch)
        if (isKeyOf(ch))
            return true;
    return isKeyOf(L' ');
}

XString TypedText(HWND edit) {
    const int length = GetWindowTextLengthW(edit);
    XString text;
    text.SetLength(length);
    GetWindowTextW(edit, text.Buffer(), length + 1);
    text.FitLength();
    // With a selection, the tail of a suggestion is still untouched, or keys like Ctrl+C came by.
    const Selection selection = SelectionOf(edit);
    if (selection.start != selection.end || static_cast<int>(selection.end) != text.Count())
        return XString();
    return text;
}

void SuggestTail(HWND combo, const XString& typed, const XString& choice) {
    SetWindowTextW(combo, typed + choice.From(typed.Count() + 1));
    SendMessageW(combo, CB_SETEDITSEL, 0, MAKELPARAM(typed.Count(), 0xFFFF));
}

void DropSuggestedTail(HWND edit) {
    const Selection selection = SelectionOf(edit);
    if (selection.start != 0 && selection.end != selection.start)
        SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L""));
}
