// The edit that serves one cell after another.
#include "toolkit/XListView.h"

#include "toolkit/XWindow.h"

#include <windowsx.h>

namespace {

constexpr DWORD editStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL;
static_assert(editStyle == 0x50010080);
constexpr int fontHeight = 13; // at 96 dots per inch

XString EditText(HWND edit) {
    XString text;
    text.SetLength(GetWindowTextLengthW(edit));
    GetWindowTextW(edit, text.Buffer(), text.StoredLength());
    text.FitLength();
    return text;
}

} // namespace

void XListView::clValueControl::Begin(int row, int column, HWND target, XListView& owner) {
    Commit();
    Close();
    Target = target;
    Owner = &owner;
    owner.SelectRow(row, true);
    RECT cell{};
    ListView_GetSubItemRect(target, row, column, LVIR_LABEL, &cell);
    Edit = CreateWindowExW(WS_EX_CLIENTEDGE, L"EDIT", L"", editStyle, cell.left, cell.top,
                           cell.right - cell.left, cell.bottom - cell.top, target, nullptr,
                           GetModuleHandleW(nullptr), nullptr);
    if (!Edit)
        return;
    Row = row;
    Column = column;
    Font.Create(nullptr, nullptr, ScaleToDpi(fontHeight));
    SetWindowFont(Edit, Font.Handle(), TRUE);
    SetWindowTextW(Edit, owner.GetCellText(row, column));
    Edit_SetSel(Edit, 0, -1);
    Attach(Edit);
    SetFocus(Edit);
}

void XListView::clValueControl::Commit() {
    if (Row < 0 || !Edit || !Owner || Row >= Owner->RowCount())
        return;
    const XString text = EditText(Edit);
    if (Owner->GetCellText(Row, Column) == text)
        return;
    Owner->SetCellText(text, Row, Column);
    Owner->OnCellEdited(Row, Column, text);
}

void XListView::clValueControl::Close() {
    const HWND edit = Edit;
    Edit = nullptr;
    Row = -1;
    Detach();
    if (edit) {
        if (GetFocus() == edit)
            SetFocus(Target);
        DestroyWindow(edit);
    }
    Target = nullptr;
    Font.Destroy();
}

LRESULT XListView::clValueControl::OnMessage(HWND, UINT message, WPARAM wParam, LPARAM lParam,
                                             std::uint32_t& handled) {
    switch (message) {
    case WM_GETDLGCODE:
        handled = 1;
        return DLGC_WANTALLKEYS;
    case WM_MOUSEWHEEL:
        PostMessageW(Target, message, wParam, lParam);
        handled = 1;
        return 0;
    case WM_KEYDOWN:
        handled = KeyDown(wParam);
        return 0;
    case WM_NCDESTROY: // with its list
        Edit = nullptr;
        Close();
        return 0;
    default:
        return 0;
    }
}

// Arrows leave the cell at the end of its text or with a range selected; elsewhere they are the edit's.
bool XListView::clValueControl::KeyDown(WPARAM key) {
    if (key == VK_RETURN || key == VK_ESCAPE) {
        if (key == VK_RETURN)
            Commit();
        Close();
        return true;
    }
    DWORD from = 0, to = 0;
    SendMessageW(Edit, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    const bool leaves = from != to || static_cast<int>(to) == GetWindowTextLengthW(Edit);
    const int step = key == VK_LEFT || key == VK_UP ? -1 : 1;
    if (!leaves || key < VK_LEFT || key > VK_DOWN)
        return false;
    if (key == VK_UP || key == VK_DOWN) {
        MoveTo(Row + step, Column);
        return true;
    }
    const int columns = Header_GetItemCount(ListView_GetHeader(Target));
    for (int column = Column + step; column >= 0 && column < columns; column += step)
        if (Owner->MayEdit(Row, column)) {
            Begin(Row, column, Target, *Owner);
            break;
        }
    return true;
}

void XListView::clValueControl::MoveTo(int row, int column) {
    if (row >= 0 && row < Owner->RowCount() && Owner->MayEdit(row, column))
        Begin(row, column, Target, *Owner);
}
