// The tree control's notifications as operations. A form derives from it, sets `Tree` in its OnInit,
// and hands all its messages to OnParentMessage. The control must be a Unicode one.
#pragma once

#include "foundation/XString.h"

#include <windows.h>

#include <commctrl.h>

#include <cstdint>

class XTreeView {
public:
    XTreeView() = default;
    virtual ~XTreeView() = default;
    XTreeView(const XTreeView&) = delete;
    XTreeView& operator=(const XTreeView&) = delete;

    // `open` is false when the item collapses. A veto keeps the item as it is.
    virtual void OnExpanding(HTREEITEM item, bool open, bool& veto);
    virtual void OnExpanded(HTREEITEM item, bool open);
    virtual void OnSelected();
    virtual void OnSelecting(HTREEITEM item, bool& veto); // null: the selection is about to go
    virtual void OnClick();
    virtual void OnDoubleClick();
    virtual void OnRightClick();
    virtual void OnRightDoubleClick();
    // Screen pixels. The item at the point is selected before; from the keyboard the point is at the
    // bottom left of the selected item, or of the control's top left without one.
    virtual void OnContextMenu(int x, int y);

    // At the end of the children of `parent`, null for the root. An image of -1 is left out. Null on
    // failure. For many items the caller turns redrawing off.
    HTREEITEM InsertItem(const wchar_t* text, int image, int selectedImage, HTREEITEM parent) const;
    [[nodiscard]] XString GetItemText(HTREEITEM item) const; // cut at 999 characters
    // To be called from the form's PreMessage; returns the message's result when it sets `handled`.
    LRESULT OnParentMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, std::uint32_t& handled);

    HWND Tree = nullptr; // borrowed

private:
    LRESULT OnTreeNotify(const NMHDR* header, std::uint32_t& handled);
    void AskContextMenu(int x, int y);
};
