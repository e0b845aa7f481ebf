// The messages of a value list: those of its list box and those that the parent hands on.
#include "toolkit/XValueList.h"

#include <algorithm>

namespace {
// Set while a message of any list's parent is handled: the list boxes send more in between.
bool isHandlingParent = false;

class ParentGuard {
public:
    ParentGuard() { isHandlingParent = true; }
    ~ParentGuard() { isHandlingParent = false; }
    ParentGuard(const ParentGuard&) = delete;
    ParentGuard& operator=(const ParentGuard&) = delete;
};

int IconWidth(HICON icon) {
    ICONINFO info{};
    if (!icon || !GetIconInfo(icon, &info))
        return 0;
    const XGdiObject mask(info.hbmMask);
    const XGdiObject colour(info.hbmColor);
    BITMAP bitmap{};
    GetObjectW(colour.Get() ? colour.Get() : mask.Get(), sizeof(bitmap), &bitmap);
    return bitmap.bmWidth;
}
} // namespace

LRESULT XValueList::OnMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, std::uint32_t& handled) {
    switch (message) {
    case WM_VSCROLL:
    case WM_MOUSEWHEEL:
        Redraw();
        return 0;
    case WM_SIZE: { // also when the scroll bar comes or goes: the rows' right ends move
        handled = 1;
        const LRESULT result = CallWindowProcW(OldProc, hwnd, message, wParam, lParam);
        Control.MoveWithRow();
        Redraw();
        return result;
    }
    case WM_SETFOCUS: {
        const HWND before = reinterpret_cast<HWND>(wParam);
        if (!IsWindow(before) || IsChild(hwnd, before))
            return 0;
        handled = 1; // the list box first: it would count itself focused after the control is
        const LRESULT result = CallWindowProcW(OldProc, hwnd, message, wParam, lParam);
        Control.Renew();
        return result;
    }
    case WM_GETDLGCODE:
        if (wParam != VK_TAB || !TakesTab())
            return 0;
        handled = 1;
        return CallWindowProcW(OldProc, hwnd, message, wParam, lParam) | DLGC_WANTTAB;
    case WM_KEYDOWN:
    case WM_KEYUP:
        if (wParam == VK_TAB && message == WM_KEYDOWN && TakesTab())
            SetFocus(Control.Button);
        else if (wParam == VK_TAB)
            PostMessageW(Parent, message, wParam, lParam);
        handled = wParam == VK_TAB || (message == WM_KEYDOWN ? OnKeyDown(wParam) : OnKeyUp(wParam));
        return 0;
    case WM_RBUTTONDOWN: // the right button selects, too
        PostMessageW(hwnd, WM_LBUTTONDOWN, wParam, lParam);
        handled = 1;
        return 0;
    case WM_RBUTTONUP:
        OnRightUp(lParam);
        handled = 1;
        return 0;
    case WM_CONTEXTMENU:
        handled = lParam == -1; // from the keyboard: there is no cursor to go by
        if (handled)
            OnContextKey();
        return 0;
    case WM_COMMAND:
        OnChildCommand(reinterpret_cast<HWND>(lParam), HIWORD(wParam));
        handled = 1;
        return 0;
    case WM_ERASEBKGND:
        EraseBelow(reinterpret_cast<HDC>(wParam));
        handled = 1;
        return 1;
    case WM_DESTROY:
        CloseControl();
        return 0;
    case WM_NCDESTROY:
        Detach();
        List = nullptr;
        return 0;
    default:
        return 0;
    }
}

bool XValueList::TakesTab() const {
    return Control.Button && GetFocus() != Control.Button && GetKeyState(VK_SHIFT) >= 0;
}

bool XValueList::OnKeyDown(WPARAM key) {
    const int row = SelectedRow();
    switch (key) {
    case VK_DOWN:
        SelectRow(row + 1);
        return true;
    case VK_UP: // above the first row the selection ends
        SelectRow(row - 1);
        return true;
    case VK_SPACE:
        if (IsRow(row) && (Rows[row].Kind == valueCheck || Rows[row].Kind == valueRadio))
            PressRow(row);
        return true;
    case VK_SHIFT:
    case VK_CONTROL:
    case VK_PRIOR: // these act when released
    case VK_NEXT:
    case VK_END:
    case VK_HOME:
    case VK_LEFT:
    case VK_RIGHT:
        return true;
    default:
        return false;
    }
}

bool XValueList::OnKeyUp(WPARAM key) {
    if (Rows.IsEmpty())
        return false;
    RECT client{};
    GetClientRect(List, &client);
    const int page = static_cast<int>(client.bottom) / std::max(1, RowHeight);
    const int last = RowCount() - 1;
    switch (key) {
    case VK_HOME:
        SelectRow(0);
        return true;
    case VK_END:
        SelectRow(last);
        return true;
    case VK_PRIOR:
        SelectRow(std::max(0, SelectedRow() - page));
        return true;
    case VK_NEXT:
        SelectRow(std::min(last, SelectedRow() + page));
        return true;
    default:
        return false;
    }
}

void XValueList::OnRightUp(LPARAM point) {
    DragFrom = -1;
    // The press went on as one of the left button, which the list box now waits for in vain.
    if (GetCapture() == List)
        SendMessageW(List, WM_LBUTTONUP, 0, point);
    POINT cursor{};
    GetCursorPos(&cursor);
    OnContextMenu(cursor.x, cursor.y);
}

void XValueList::OnContextKey() {
    POINT place{};
    if (const int row = SelectedRow(); row >= 0) {
        const RECT item = ItemRect(row);
        place = {item.left, item.bottom};
    }
    ClientToScreen(List, &place);
    OnContextMenu(place.x, place.y);
}

void XValueList::OnChildCommand(HWND child, UINT code) {
    const int row = Control.Row;
    if (!child || !IsRow(row))
        return;
    if (child == Control.Button && code == BN_CLICKED) {
        Control.Commit();
        if (const XValueCallback pressed = Rows[row].OnButton)
            pressed(*this, row);
        return;
    }
    // A combo box tells of typing by a code of its own.
    const bool isTyped = code == EN_CHANGE || (Rows[row].Kind == valueCombo && code == CBN_EDITCHANGE);
    if (child != Control.Window || (!isTyped && code != CBN_SELCHANGE))
        return;
    if (isTyped)
        Control.Commit();
    else
        Control.TakeChoice();
    if (const XValueCallback changed = Rows[row].OnChange)
        changed(*this, row);
}

LRESULT XValueList::OnParentMessage(HWND, UINT message, WPARAM wParam, LPARAM lParam,
                                    std::uint32_t& handled) {
    if (!List && !creating)
        return 0;
    if (message == WM_DRAWITEM) {
        const auto* draw = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        if (draw->hwndItem != List)
            return 0;
        DrawItem(*draw);
        handled = 1;
        return TRUE;
    }
    if (isHandlingParent)
        return 0;
    const ParentGuard guard;
    if (message == WM_MEASUREITEM) {
        auto* measure = reinterpret_cast<MEASUREITEMSTRUCT*>(lParam);
        if (measure->CtlType != ODT_LISTBOX || measure->CtlID != ControlId)
            return 0;
        measure->itemHeight = static_cast<UINT>(RowHeight);
        handled = 1;
        return TRUE;
    }
    if (message == WM_COMMAND && lParam && reinterpret_cast<HWND>(lParam) == List) {
        OnListCommand(HIWORD(wParam));
        handled = 1;
    } else if ((message == WM_CHARTOITEM || message == WM_VKEYTOITEM) &&
               reinterpret_cast<HWND>(lParam) == List) {
        // To search by itself, the list box wants -1, from a dialog's procedure as its own answer,
        // which is this flag. A dialog's default of 0 would select the first row on any key.
        handled = static_cast<std::uint32_t>(-1);
        return -1;
    } else if (message == WM_PARENTNOTIFY && LOWORD(wParam) == WM_LBUTTONDOWN) {
        OnParentClick();
    } else if (DragMessage != 0 && message == DragMessage &&
               static_cast<std::uint32_t>(wParam) == ControlId && lParam) {
        handled = 1;
        return OnDragMessage(*reinterpret_cast<const DRAGLISTINFO*>(lParam));
    }
    return 0;
}

void XValueList::OnListCommand(UINT code) {
    const int row = SelectedRow();
    if (code == LBN_SELCHANGE) {
        Control.Renew();
        OnSelect();
    } else if (code == LBN_DBLCLK && IsRow(row)) {
        if (Rows[row].Kind == valueLink)
            OpenLink(Parent, Rows[row].Value);
        OnDoubleClick(row);
    }
}

void XValueList::OnParentClick() {
    const int row = RowAtCursor();
    if (!IsRow(row))
        return;
    const bool isCheck = Rows[row].Kind == valueCheck;
    if (!isCheck && Rows[row].Kind != valueRadio)
        return;
    POINT cursor{};
    GetCursorPos(&cursor);
    ScreenToClient(List, &cursor);
    const RECT item = ItemRect(row);
    if (cursor.x < item.left || cursor.x >= item.right) // on the scroll bar
        return;
    const XIcon& icon = IsChecked(row) ? (isCheck ? CheckOn : RadioOn) : (isCheck ? CheckOff : RadioOff);
    const int width = IconWidth(icon.Get());
    const int left = ResolveCoordinate(Rows[row].IconX, width, item.right - item.left, item.left);
    const bool isOnIcon = cursor.x >= left && cursor.x < left + width;
    if (isOnIcon || (row == SelectedRow() && Rows[row].ButtonText.IsEmpty()))
        PressRow(row);
}
