// What the list and its header tell their parent, as operations.
#include "toolkit/XListView.h"

#include <windowsx.h>

#include <algorithm>

LRESULT XListView::OnParentMessage(HWND, UINT message, WPARAM wParam, LPARAM lParam, std::uint32_t& handled) {
    handled = 0;
    if (!List)
        return 0;
    if (message == WM_NOTIFY) {
        const auto* header = reinterpret_cast<const NMHDR*>(lParam);
        if (header->hwndFrom == List)
            return OnListNotify(header, handled);
        if (header->hwndFrom == ListView_GetHeader(List))
            return OnHeaderNotify(*reinterpret_cast<const NMHEADERW*>(header), handled);
    } else if (message == WM_CONTEXTMENU && reinterpret_cast<HWND>(wParam) == List) {
        OnContextMenu(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam), List);
        handled = 1;
    } else if (message == WM_DRAWITEM && wParam == static_cast<WPARAM>(GetDlgCtrlID(List))) {
        const auto* draw = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        if (draw->itemID <= static_cast<UINT>(RowCount())) {
            OnDrawItem(*draw);
            handled = 1;
        }
    }
    return 0;
}

LRESULT XListView::OnHeaderNotify(const NMHEADERW& header, std::uint32_t& handled) {
    switch (header.hdr.code) {
    case HDN_ENDTRACKW:
        OnColumnResized(header.iItem);
        return 0;
    case HDN_ENDDRAG:
        OnColumnsReordered();
        return 0;
    case HDN_ITEMCHANGINGW:
        handled = RefuseWidth(header);
        return handled;
    default:
        return 0;
    }
}

bool XListView::RefuseWidth(const NMHEADERW& header) {
    const int column = header.iItem;
    if (!header.pitem || header.pitem->mask != HDI_WIDTH || column < 0 || column >= Columns.count)
        return false;
    const int minimum = static_cast<int>(reinterpret_cast<ULONG_PTR>(Columns.items[column]) & 0xFFFFFFFF);
    if (minimum == 0 || header.pitem->cxy >= minimum)
        return false;
    ListView_SetColumnWidth(List, column, minimum);
    return true;
}

LRESULT XListView::OnListNotify(const NMHDR* header, std::uint32_t& handled) {
    const auto* list = reinterpret_cast<const NMLISTVIEW*>(header);
    const auto* click = reinterpret_cast<const NMITEMACTIVATE*>(header);
    const auto* label = reinterpret_cast<const NMLVDISPINFOW*>(header);
    handled = 1;
    switch (header->code) {
    case LVN_BEGINLABELEDITW:
        handled = label->item.iItem != -1;
        return handled ? BeginLabelEdit(label->item.iItem) : 0;
    case LVN_ENDLABELEDITW:
        handled = label->item.iItem != -1;
        return handled ? EndLabelEdit(*label) : 0;
    case LVN_GETINFOTIPW:
        FillInfoTip(*reinterpret_cast<NMLVGETINFOTIPW*>(const_cast<NMHDR*>(header)));
        return 0;
    case LVN_MARQUEEBEGIN:
        return OnMarqueeBegin();
    case LVN_KEYDOWN:
        KeyPressed(reinterpret_cast<const NMLVKEYDOWN*>(header)->wVKey);
        handled = 0;
        return 0;
    case LVN_BEGINDRAG:
        OnBeginDrag(*list);
        return 0;
    case LVN_COLUMNCLICK:
        OnColumnClick(list->iSubItem);
        return 0;
    case LVN_ITEMCHANGED:
        handled = !Updating;
        if (handled)
            ItemChanged(*list);
        return 0;
    case LVN_DELETEALLITEMS:
        return TRUE; // no message for each row of a long list
    case NM_CLICK:
        OnClick(click->iItem, click->iSubItem, click->ptAction);
        return 0;
    case NM_DBLCLK:
        OnDoubleClick(click->iItem, click->iSubItem, click->ptAction);
        return 0;
    case NM_RCLICK:
        OnRightClick(click->iItem, click->iSubItem, click->ptAction);
        return 0;
    case NM_RDBLCLK:
        OnRightDoubleClick(click->iItem, click->iSubItem, click->ptAction);
        return 0;
    default:
        handled = 0;
        return 0;
    }
}

void XListView::ItemChanged(const NMLISTVIEW& change) {
    OnItemChanged(change.iItem, change.iSubItem, change.uChanged, change.uOldState, change.uNewState);
    if (change.uChanged != LVIF_STATE)
        return;
    const UINT flipped = change.uOldState ^ change.uNewState;
    if ((flipped & LVIS_SELECTED) != 0)
        OnSelectChanged(change.iItem, change.iSubItem, (change.uNewState & LVIS_SELECTED) != 0);
    if ((flipped & INDEXTOSTATEIMAGEMASK(3)) != 0)
        OnCheckChanged(change.iItem, IsChecked(change.iItem));
}

// The control cuts a long text on its way into its edit, and on the way out again.
LRESULT XListView::BeginLabelEdit(int row) {
    if (OnBeginLabelEdit(row))
        return TRUE;
    if (const HWND edit = ListView_GetEditControl(List)) {
        const XString text = GetCellText(row, 0);
        Edit_LimitText(edit, 0);
        if (GetWindowTextLengthW(edit) < text.Count())
            SetWindowTextW(edit, text);
    }
    return FALSE;
}

LRESULT XListView::EndLabelEdit(const NMLVDISPINFOW& info) {
    // The rows are names, and an empty one names nothing.
    if (!info.item.pszText || !*info.item.pszText) {
        OnLabelEditCancelled(info.item.iItem);
        return FALSE;
    }
    XString text(info.item.pszText);
    const HWND edit = ListView_GetEditControl(List);
    if (edit && GetWindowTextLengthW(edit) > text.Count()) {
        XString whole;
        whole.SetLength(GetWindowTextLengthW(edit));
        GetWindowTextW(edit, whole.Buffer(), whole.StoredLength());
        whole.FitLength();
        if (whole.StartsWith(text))
            text = whole;
    }
    SetCellText(text, info.item.iItem, 0);
    const bool isAgreed = OnEndLabelEdit(info.item.iItem, text);
    return isAgreed && text == info.item.pszText; // else the control would store what it has cut
}

void XListView::FillInfoTip(NMLVGETINFOTIPW& tip) {
    const XString text = GetInfoTip(tip.iItem);
    if (tip.cchTextMax <= 0 || !tip.pszText)
        return;
    const int units = std::min(text.Count(), tip.cchTextMax - 1);
    std::copy_n(text.Text(), units, tip.pszText);
    tip.pszText[units] = 0;
}

void XListView::KeyPressed(WORD key) {
    if (key == VK_F2)
        Rename();
    if (key == 'A' && GetKeyState(VK_CONTROL) < 0)
        SelectAll();
    OnKeyDown(key);
}

void XListView::Rename() {
    const bool hasLabels = (GetWindowLongW(List, GWL_STYLE) & LVS_EDITLABELS) != 0;
    if ((!hasLabels && EditMode == 0) || !CanRename())
        return;
    const int row = ListView_GetSelectionMark(List);
    if (row < 0)
        return;
    if (EditMode == 0)
        SendMessageW(List, LVM_EDITLABELW, static_cast<WPARAM>(row), 0);
    else if (MayEdit(row, 0))
        Editor.Begin(row, 0, List, *this);
}

void XListView::SelectAll() {
    if ((GetWindowLongW(List, GWL_STYLE) & LVS_SINGLESEL) != 0 || !CanSelectAll())
        return;
    const XListUpdate update(*this);
    ListView_SetItemState(List, -1, LVIS_SELECTED, LVIS_SELECTED);
    const int rows = RowCount();
    for (int row = 0; row < rows; ++row)
        OnSelectChanged(row, 0, true);
}
