// The owner-drawn popup menu of the forms. Each item is a display list, so that its states are masks;
// checks and graying are those of the menu itself and may change at any time.
#pragma once

#include "foundation/XArray.h"
#include "foundation/XHandles.h"
#include "toolkit/MenuItemList.h"
#include "toolkit/XBitmap.h"
#include "toolkit/XDisplayList.h"

#include <windows.h>

#include <cstdint>

// One item to add.
struct clMenuEntry {
    UINT Id = 0;
    const wchar_t* Text = nullptr; // shown as it is, also an '&'; null is a separator
    HICON Icon = nullptr;          // borrowed: the item takes a copy
    HMENU Parent = nullptr;        // a sub-menu; null is the popup itself
    int Position = -1;             // -1 is the end
};

// An item while it is in a menu.
struct clMenuItem {
    UINT Id = 0; // of an item that opens a sub-menu whatever the system gave it
    XString Text;
    wchar_t AccessKey = 0; // capital; the letter behind a single '&' of a resource, or the first of the text
    XIcon Icon;
    std::uint8_t HasStrip = 0; // the strip for icons at the left
    std::uint8_t HasArrow = 0; // opens a sub-menu
    XDisplayList Records;
};

class XOwnerMenu {
public:
    XOwnerMenu() = default;
    ~XOwnerMenu() { Reset(); }
    XOwnerMenu(const XOwnerMenu&) = delete;
    XOwnerMenu& operator=(const XOwnerMenu&) = delete;

    // A menu of this module's resources, whose first sub-menu is the popup. Replaces what was there;
    // false leaves no menu.
    bool Load(int resourceId);
    // `withIcon` gives the item the strip for icons, also if it has none itself; the items of one
    // menu should agree. Without a menu it makes an empty popup first. False if the system refuses.
    bool AddItem(const clMenuEntry& entry, bool withIcon);
    // Takes a copy; null removes the icon. Sub-menus are searched, too, as in all that take an id.
    void SetItemIcon(UINT id, HICON icon);
    void RemoveItem(UINT id);
    void EnableItem(UINT id, bool enable);
    void CheckItem(UINT id, bool check);
    void Reset(); // drops the menu and all items

    // Opens the popup at the cursor, at a point in screen pixels, or below a control (for buttons and
    // the keyboard). Returns the chosen id, 0 for none; no WM_COMMAND is sent. `window` is the form
    // that hands its messages to OnParentMessage. The menu stays: a context menu is Reset after it.
    UINT Track(HWND window);
    UINT TrackAt(HWND window, int x, int y);
    UINT TrackBelow(HWND window, HWND control);
    // To be called from the form's PreMessage; returns the message's result when it sets `handled`.
    LRESULT OnParentMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, std::uint32_t& handled);

    [[nodiscard]] HMENU Popup() const noexcept; // borrowed, null without a menu
    [[nodiscard]] clMenuItem* Find(UINT id) const noexcept;
    // The active mask of an item's list, by its state in a drawing order and in the menu.
    [[nodiscard]] static std::uint32_t MaskOf(UINT itemState, UINT menuState) noexcept;

    HMENU Menu = nullptr;
    std::uint8_t OwnsMenu = 0;
    XArray<clMenuItem> Items;
    clMenuItem* Current = nullptr; // of the last measure or drawing message; null for a separator
    XDisplayList Separator;        // one for all; made on first need
    XBitmap Buffer;
    int IconWidth = 16, IconHeight = 16; // pixels

private:
    bool isLoaded = false; // Menu is a bar with the popup in it

    void TakeMenu(HMENU menu);
    // Makes the item Current. Foreign items are never touched: they may be of another menu.
    [[nodiscard]] bool Owns(ULONG_PTR itemData);
    [[nodiscard]] bool HasStrip() const noexcept;
    [[nodiscard]] clMenuLook Look(bool hasStrip) const;
    void Build(clMenuItem& item) const;
    XDisplayList& SeparatorList();
    void Measure(MEASUREITEMSTRUCT& measure);
    void Draw(const DRAWITEMSTRUCT& draw);
    LRESULT FindByKey(HMENU menu, wchar_t key, std::uint32_t& handled);
};
