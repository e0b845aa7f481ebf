// The tree control's notifications as operations.
#include "toolkit/XTreeView.h"

#include <windowsx.h>

void XTreeView::OnExpanding(HTREEITEM, bool, bool&) {}

void XTreeView::OnExpanded(HTREEITEM, bool) {}

void XTreeView::OnSelected() {}

void XTreeView::OnSelecting(HTREEITEM, bool&) {}

void XTreeView::OnClick() {}

void XTreeView::OnDoubleClick() {}

void XTreeView::OnRightClick() {}

void XTreeView::OnRightDoubleClick() {}

void XTreeView::OnContextMenu(int, int) {}

HTREEITEM XTreeView::InsertItem(const wchar_t* text, int image, int selectedImage, HTREEITEM parent) const {
    TVINSERTSTRUCTW insert{};
    insert.hParent = parent ? parent : TVI_ROOT;
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT;
    insert.item.pszText = const_cast<wchar_t*>(text ? text : L"");
    if (image != -1) {
        insert.item.mask |= TVIF_IMAGE;
        insert.item.iImage = image;
    }
    if (selectedImage != -1) {
        insert.item.mask |= TVIF_SELECTEDIMAGE;
        insert.item.iSelectedImage = selectedImage;
    }
    return TreeView_InsertItem(Tree, &insert);
}

XString XTreeView::GetItemText(HTREEITEM item) const {
    wchar_t text[1000] = L"";
    TVITEMW query{};
    query.mask = TVIF_TEXT;
    query.hItem = item;
    query.pszText = text;
    query.cchTextMax = 1000;
    if (!item || !TreeView_GetItem(Tree, &query))
        return XString();
    // The control may answer with a buffer of its own, of any length.
    XString shown;
    shown = query.pszText;
    return shown.Left(999);
}

LRESULT XTreeView::OnParentMessage(HWND, UINT message, WPARAM wParam, LPARAM lParam, std::uint32_t& handled) {
    if (!Tree)
        return 0;
    if (message == WM_CONTEXTMENU && reinterpret_cast<HWND>(wParam) == Tree) {
        AskContextMenu(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
        handled = 1;
    } else if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->hwndFrom == Tree) {
        return OnTreeNotify(reinterpret_cast<const NMHDR*>(lParam), handled);
    }
    return 0;
}

LRESULT XTreeView::OnTreeNotify(const NMHDR* header, std::uint32_t& handled) {
    const auto* tree = reinterpret_cast<const NMTREEVIEWW*>(header);
    bool veto = false;
    switch (header->code) {
    case NM_CLICK:
        OnClick();
        break;
    case NM_DBLCLK:
        OnDoubleClick();
        break;
    case NM_RCLICK:
        OnRightClick();
        break;
    case NM_RDBLCLK:
        OnRightDoubleClick();
        break;
    case TVN_KEYDOWN:
        // The control would take a blank as the start of a search by typing, with a beep.
        if (reinterpret_cast<const NMTVKEYDOWN*>(header)->wVKey != VK_SPACE)
            return 0;
        veto = true;
        break;
    case TVN_SELCHANGEDW:
        OnSelected();
        break;
    case TVN_SELCHANGINGW:
        OnSelecting(tree->itemNew.hItem, veto);
        break;
    case TVN_ITEMEXPANDINGW:
        OnExpanding(tree->itemNew.hItem, tree->action == TVE_EXPAND, veto);
        break;
    case TVN_ITEMEXPANDEDW:
        OnExpanded(tree->itemNew.hItem, tree->action == TVE_EXPAND);
        break;
    default:
        return 0;
    }
    handled = 1;
    return veto;
}

void XTreeView::AskContextMenu(int x, int y) {
    POINT point{x, y};
    if (x == -1 && y == -1) {
        RECT item{};
        const HTREEITEM selected = TreeView_GetSelection(Tree);
        if (selected)
            TreeView_EnsureVisible(Tree, selected);
        if (!selected || !TreeView_GetItemRect(Tree, selected, &item, TRUE))
            item = RECT{};
        point = POINT{item.left, item.bottom};
        ClientToScreen(Tree, &point);
    } else {
        TVHITTESTINFO hit{};
        hit.pt = point;
        ScreenToClient(Tree, &hit.pt);
        if (TreeView_HitTest(Tree, &hit))
            TreeView_SelectItem(Tree, hit.hItem);
    }
    OnContextMenu(point.x, point.y);
}
