// The list's operations as they stand, its columns, cells and selection.
#include "toolkit/XListView.h"

#include "foundation/XString.h"

#include <shellapi.h>

namespace {

constexpr int cellUnits = 1000; // the terminator included
constexpr UINT anyState = LVIS_FOCUSED | LVIS_SELECTED | LVIS_CUT | LVIS_DROPHILITED;
static_assert(anyState == 15);

// Of the bulk change that stands. What the list tells of each row has no taker then, and on its way
// there it would cost far more than the change itself.
HWND deafTo = nullptr;
WNDPROC parentProc = nullptr;
bool isParentDeaf = false;

LRESULT CALLBACK DeafParent(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_NOTIFY) {
        const auto* header = reinterpret_cast<const NMHDR*>(lParam);
        if (header->hwndFrom == deafTo)
            return header->code == LVN_DELETEALLITEMS; // and nothing for each of them
    }
    return CallWindowProcW(parentProc, hwnd, message, wParam, lParam);
}

} // namespace

XListView::~XListView() {
    Editor.Close();
    Detach();
    List = nullptr;
}

bool XListView::CanEditCell(int, int) {
    return true;
}

void XListView::OnItemChanged(int, int, UINT, UINT, UINT) {}

void XListView::OnSelectChanged(int, int, bool) {}

void XListView::OnCheckChanged(int, bool) {}

bool XListView::OnBeginLabelEdit(int) {
    return false;
}

bool XListView::OnEndLabelEdit(int, const XString&) {
    return true;
}

void XListView::OnCellEdited(int, int, const XString&) {}

void XListView::OnLabelEditCancelled(int) {}

void XListView::OnBeginDrag(const NMLISTVIEW&) {}

void XListView::OnKeyDown(WORD) {}

bool XListView::CanRename() {
    return true;
}

bool XListView::CanSelectAll() {
    return true;
}

XString XListView::GetInfoTip(int) {
    return XString();
}

bool XListView::OnMarqueeBegin() {
    return false;
}

void XListView::OnColumnClick(int) {}

void XListView::OnClick(int, int, POINT) {}

void XListView::OnLeftDown(int, int, std::uint32_t& handled) {
    handled = 0;
}

void XListView::OnDoubleClick(int, int, POINT) {}

void XListView::OnRightClick(int, int, POINT) {}

void XListView::OnRightDoubleClick(int, int, POINT) {}

void XListView::OnContextMenu(int, int, HWND) {}

void XListView::OnColumnResized(int) {}

void XListView::OnColumnsReordered() {}

void XListView::OnDrawItem(const DRAWITEMSTRUCT&) {}

void XListView::OnScroll(WORD, WORD) {}

void XListView::AddColumn(const wchar_t* title, int width, int format) {
    if (!List)
        return;
    LVCOLUMNW column{};
    column.mask = LVCF_FMT | LVCF_WIDTH | LVCF_TEXT | LVCF_SUBITEM;
    column.fmt = format;
    column.cx = width;
    column.pszText = const_cast<wchar_t*>(title);
    column.iSubItem = static_cast<int>(Columns.count);
    if (SendMessageW(List, LVM_INSERTCOLUMNW, static_cast<WPARAM>(Columns.count),
                     reinterpret_cast<LPARAM>(&column)) >= 0)
        Columns.Add(nullptr);
}

void XListView::SetMinimumWidth(int column, int width) {
    if (column >= 0 && column < Columns.count)
        Columns.items[column] = reinterpret_cast<void*>(static_cast<ULONG_PTR>(static_cast<UINT>(width)));
}

void XListView::SetCellText(const wchar_t* text, int row, int column) {
    LVITEMW cell{};
    cell.mask = LVIF_TEXT;
    cell.iItem = row;
    cell.iSubItem = column;
    cell.pszText = const_cast<wchar_t*>(text ? text : L"");
    if (List)
        Ask(LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&cell));
}

// Straight to the control's own procedure: what stands before it has no part in rows and cells, and
// its lock costs more than a cell.
LRESULT XListView::Ask(UINT message, WPARAM wParam, LPARAM lParam) const {
    return OldProc && Hwnd == List ? CallWindowProcW(OldProc, List, message, wParam, lParam)
                                   : SendMessageW(List, message, wParam, lParam);
}

int XListView::NextRow(int row, UINT kind) const {
    return List ? static_cast<int>(Ask(LVM_GETNEXTITEM, static_cast<WPARAM>(row), MAKELPARAM(kind, 0))) : -1;
}

UINT XListView::RowState(int row, UINT mask) const {
    return List ? static_cast<UINT>(Ask(LVM_GETITEMSTATE, static_cast<WPARAM>(row), mask)) : 0;
}

XString XListView::GetCellText(int row, int column) const {
    wchar_t text[cellUnits] = L"";
    LVITEMW cell{};
    cell.iSubItem = column;
    cell.pszText = text;
    cell.cchTextMax = cellUnits;
    if (!List || Ask(LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&cell)) <= 0)
        return XString();
    return XString(cell.pszText).Left(cellUnits - 1);
}

// Only rows that have something to lose are asked to lose it: a list can be very long.
void XListView::SelectRow(int row, bool exclusive) {
    if (!List)
        return;
    if (!exclusive) {
        ListView_SetItemState(List, row, LVIS_SELECTED, LVIS_SELECTED);
        return;
    }
    LeaveMany(row);
    for (const UINT kind : {LVNI_SELECTED, LVNI_FOCUSED, LVNI_CUT, LVNI_DROPHILITED})
        for (int other = -1; (other = NextRow(other, kind)) >= 0;)
            if (other != row)
                ListView_SetItemState(List, other, 0, anyState);
    ListView_SetItemState(List, row, LVIS_SELECTED | LVIS_FOCUSED, anyState);
    ListView_SetSelectionMark(List, row);
}

std::vector<int> XListView::GetSelectedRows() const {
    std::vector<int> rows;
    for (int row = -1; (row = NextRow(row, LVNI_SELECTED)) >= 0;)
        rows.push_back(row);
    return rows;
}

int XListView::RowAtCursor() const {
    LVHITTESTINFO hit{};
    hit.pt = CursorPoint();
    return List ? ListView_SubItemHitTest(List, &hit) : -1;
}

int XListView::RowCount() const {
    return List ? ListView_GetItemCount(List) : 0;
}

int XListView::InsertRow(int row, const wchar_t* text, int image) const {
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = row;
    item.pszText = const_cast<wchar_t*>(text);
    if (image != -1) {
        item.mask |= LVIF_IMAGE;
        item.iImage = image;
    }
    return List ? static_cast<int>(Ask(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item))) : -1;
}

// The list of the system must not go with the control: see WM_DESTROY.
void XListView::UseShellIcons() {
    SHFILEINFOW info{};
    const auto images =
        static_cast<LPARAM>(SHGetFileInfoW(L".", FILE_ATTRIBUTE_NORMAL, &info, sizeof info,
                                           SHGFI_SYSICONINDEX | SHGFI_SMALLICON | SHGFI_USEFILEATTRIBUTES));
    if (List)
        SendMessageW(List, LVM_SETIMAGELIST, LVSIL_SMALL, images);
    borrowsImages = true;
}

bool XListView::IsChecked(int row) const {
    return List && RowState(row, LVIS_STATEIMAGEMASK) >> 12 != listImageUnchecked;
}

void XListView::SetChecked(int row, bool checked) const {
    LVITEMW item{};
    item.state = INDEXTOSTATEIMAGEMASK(checked ? listImageChecked : listImageUnchecked);
    item.stateMask = LVIS_STATEIMAGEMASK;
    if (List)
        Ask(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

POINT XListView::MenuPoint(int x, int y) const {
    if (x != -1 || y != -1)
        return {x, y};
    RECT place{};
    const int row = NextRow(-1, LVNI_FOCUSED);
    if (row >= 0) {
        ListView_EnsureVisible(List, row, FALSE);
        ListView_GetItemRect(List, row, &place, LVIR_LABEL);
    }
    POINT point{place.left, place.bottom};
    ClientToScreen(List, &point);
    return point;
}

XListUpdate::XListUpdate(XListView& list) : list(list), isOuter(!list.Updating) {
    if (!isOuter)
        return;
    list.Updating = 1;
    SendMessageW(list.List, WM_SETREDRAW, FALSE, 0);
    if (isParentDeaf || !list.List)
        return;
    list.Detach();
    deafTo = list.List;
    parent = GetParent(list.List);
    parentProc = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(parent, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(DeafParent)));
    isParentDeaf = parentProc != nullptr;
}

XListUpdate::~XListUpdate() {
    if (!isOuter)
        return;
    if (parent) {
        if (parentProc)
            SetWindowLongPtrW(parent, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(parentProc));
        isParentDeaf = false;
        list.Attach(list.List);
    }
    SendMessageW(list.List, WM_SETREDRAW, TRUE, 0);
    list.Updating = 0;
    InvalidateRect(list.List, nullptr, TRUE);
}
