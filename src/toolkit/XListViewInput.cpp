// The mouse and the keys in the list itself: check boxes of several rows at once, and the editor.
#include "toolkit/XListView.h"

#include <windowsx.h>

#include <algorithm>

namespace {

constexpr unsigned checkStrip = 20; // pixels behind the left edge of column 0, that one included
constexpr std::size_t manyRows = 100;

bool IsDown(int key) {
    return GetAsyncKeyState(key) < 0;
}

} // namespace

LRESULT XListView::OnMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, std::uint32_t& handled) {
    switch (message) {
    case WM_LBUTTONDOWN:
        LeftDown({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}, handled);
        return 0;
    case WM_LBUTTONDBLCLK: // the second of two quick clicks on a check box
        handled = CheckClick();
        return 0;
    case WM_KEYDOWN:
        handled = wParam == VK_SPACE && SpacePressed();
        if (wParam >= VK_PRIOR && wParam <= VK_DOWN && wParam != VK_LEFT && wParam != VK_RIGHT &&
            GetKeyState(VK_CONTROL) >= 0)
            LeaveMany(NextRow(-1, LVNI_FOCUSED));
        return 0;
    case WM_VSCROLL:
        OnScroll(LOWORD(wParam), HIWORD(wParam));
        return 0;
    case WM_NOTIFY: {
        // Some systems tell only the list of a column's new width.
        const auto* header = reinterpret_cast<const NMHEADERW*>(lParam);
        if (header->hdr.code == HDN_ITEMCHANGINGW && header->hdr.hwndFrom == ListView_GetHeader(hwnd))
            handled = RefuseWidth(*header);
        return handled;
    }
    case WM_DESTROY:
        Empty();
        return 0;
    case WM_NCDESTROY:
        Editor.Close();
        Detach();
        List = nullptr;
        Columns.ClearSlots();
        return 0;
    default:
        return 0;
    }
}

// A long list would tell its parent of each row as it goes, and no borrowed image list may go with it.
void XListView::Empty() {
    const XListUpdate update(*this);
    ListView_DeleteAllItems(List);
    if (borrowsImages)
        SendMessageW(List, LVM_SETIMAGELIST, LVSIL_SMALL, 0);
    borrowsImages = false;
}

POINT XListView::CursorPoint() const {
    POINT point{};
    GetCursorPos(&point);
    ScreenToClient(List, &point);
    return point;
}

// In pixels of the list. A report has no origin: what is scrolled away shows in the header's place.
int XListView::CheckBoxEdge() const {
    const HWND header = ListView_GetHeader(List);
    const int count = Header_GetItemCount(header);
    std::vector<int> order(static_cast<std::size_t>(std::max(count, 0)));
    if (order.empty() || !ListView_GetColumnOrderArray(List, count, order.data()))
        return 0;
    int edge = 0;
    for (std::size_t i = 0; i < order.size() && order[i] != 0; ++i)
        edge += ListView_GetColumnWidth(List, order[i]);
    POINT origin{};
    if (!ListView_GetOrigin(List, &origin))
        MapWindowPoints(header, List, &origin, 1);
    return edge + origin.x;
}

// On a screen of more dots per inch the box itself can reach beyond the strip.
bool XListView::IsOnCheckBox(POINT point) const {
    if (static_cast<unsigned>(point.x - CheckBoxEdge()) <= checkStrip)
        return true;
    LVHITTESTINFO hit{};
    hit.pt = point;
    return ListView_SubItemHitTest(List, &hit) >= 0 && hit.iSubItem == 0 &&
           (hit.flags & LVHT_ONITEM) == LVHT_ONITEMSTATEICON;
}

bool XListView::CheckClick() {
    if (!List || (ListView_GetExtendedListViewStyle(List) & LVS_EX_CHECKBOXES) == 0 ||
        !IsOnCheckBox(CursorPoint()))
        return false;
    const int row = RowAtCursor();
    if (row < 0)
        return false;
    SetFocus(List); // ends a label edit, as any other click does
    CheckWithSelection(row);
    return true;
}

void XListView::CheckWithSelection(int row) {
    if (RowState(row, LVIS_SELECTED) == 0)
        SelectRow(row, true);
    const bool checked = !IsChecked(row);
    const std::vector<int> rows = GetSelectedRows();
    if (rows.size() < manyRows)
        for (const int selected : rows)
            SetChecked(selected, checked);
    else
        CheckMany(rows, checked);
}

// The same by a bulk change, and what each row would have told.
void XListView::CheckMany(const std::vector<int>& rows, bool checked) {
    std::vector<UINT> before;
    before.reserve(rows.size());
    {
        const XListUpdate update(*this);
        for (const int row : rows) {
            before.push_back(RowState(row, ~0U));
            SetChecked(row, checked);
        }
    }
    const UINT image = INDEXTOSTATEIMAGEMASK(checked ? listImageChecked : listImageUnchecked);
    for (std::size_t i = 0; i < rows.size() && List; ++i) {
        const UINT after = (before[i] & ~LVIS_STATEIMAGEMASK) | image;
        if (before[i] == after)
            continue;
        OnItemChanged(rows[i], 0, LVIF_STATE, before[i], after);
        OnCheckChanged(rows[i], checked);
    }
}

// What a plain key or click is about to do, row by row with a message to the parent for each, which
// takes seconds in a long list.
void XListView::LeaveMany(int keptRow) {
    if (!List || Ask(LVM_GETSELECTEDCOUNT, 0, 0) < static_cast<LRESULT>(manyRows))
        return;
    const std::vector<int> rows = GetSelectedRows();
    const bool isTold = !Updating;
    {
        const XListUpdate update(*this);
        LVITEMW item{};
        item.stateMask = LVIS_SELECTED;
        for (const int row : rows)
            if (row != keptRow)
                Ask(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    }
    for (std::size_t i = 0; i < rows.size() && List && isTold; ++i) {
        if (rows[i] == keptRow)
            continue;
        OnItemChanged(rows[i], 0, LVIF_STATE, LVIS_SELECTED, 0);
        OnSelectChanged(rows[i], 0, false);
    }
}

// As a click on the box of the focused row. The control itself would drop the selection first.
bool XListView::SpacePressed() {
    if (!List || (ListView_GetExtendedListViewStyle(List) & LVS_EX_CHECKBOXES) == 0)
        return false;
    for (const int key : {VK_CONTROL, VK_SHIFT, VK_MENU})
        if (GetKeyState(key) < 0)
            return false;
    const int row = NextRow(-1, LVNI_FOCUSED);
    if (row < 0)
        return false;
    OnKeyDown(VK_SPACE);
    CheckWithSelection(row);
    return true;
}

bool XListView::MayEdit(int row, int column) {
    return (EditMode != 1 || column == 0) && CanEditCell(row, column);
}

void XListView::LeftDown(POINT point, std::uint32_t& handled) {
    if (CheckClick()) {
        handled = 1;
        return;
    }
    OnLeftDown(RowAtCursor(), CursorPoint().x, handled);
    if (EditMode == 0) {
        if (!handled && GetKeyState(VK_CONTROL) >= 0)
            LeaveMany(RowAtCursor());
        return;
    }
    Editor.Commit();
    Editor.Close();
    for (const int key : {VK_LCONTROL, VK_RCONTROL, VK_LSHIFT, VK_RSHIFT})
        if (IsDown(key))
            return;
    LVHITTESTINFO hit{};
    hit.pt = point;
    if (ListView_SubItemHitTest(List, &hit) < 0 || !MayEdit(hit.iItem, hit.iSubItem))
        return;
    Editor.Begin(hit.iItem, hit.iSubItem, List, *this);
    handled = 1;
}
