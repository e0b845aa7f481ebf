// The items of an owner-drawn menu, their measuring and drawing, and the keys that choose them.
#include "toolkit/XOwnerMenu.h"

#include "toolkit/XWindow.h"

#include <algorithm>

namespace {

constexpr UINT trackFlags = TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON;
constexpr int separatorHeight = 9; // at 96 dots per inch, as the next two
constexpr int fontHeight = 13;
constexpr int arrowWidth = 8; // what a sub-menu's arrow needs beside what the system adds

wchar_t Capital(wchar_t ch) {
    const auto folded =
        reinterpret_cast<ULONG_PTR>(CharUpperW(reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(ch))));
    return static_cast<wchar_t>(folded);
}

// A text of a resource as it is shown: a single '&' is dropped and names the key.
XString ShownText(const wchar_t* text, wchar_t& key) {
    XString shown;
    for (; *text; ++text) {
        if (*text == L'&' && text[1]) {
            ++text;
            if (*text != L'&' && !key)
                key = Capital(*text);
        }
        shown.InsertChar(*text);
    }
    if (!key)
        key = Capital(shown.CharAt(1));
    return shown;
}

MENUITEMINFOW Asking(UINT mask) {
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = mask;
    return info;
}

// By the item's own data: items that open sub-menus may have no id of their own.
UINT MenuState(HMENU menu, ULONG_PTR itemData) {
    const int count = GetMenuItemCount(menu);
    for (int i = 0; i < count; ++i) {
        MENUITEMINFOW info = Asking(MIIM_DATA | MIIM_STATE);
        if (GetMenuItemInfoW(menu, static_cast<UINT>(i), TRUE, &info) && info.dwItemData == itemData)
            return info.fState;
    }
    return 0;
}

} // namespace

bool XOwnerMenu::Load(int resourceId) {
    Reset();
    IconWidth = IconHeight = 16;
    Menu = LoadMenuW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(resourceId));
    if (!Menu)
        return false;
    OwnsMenu = 1;
    isLoaded = true;
    TakeMenu(Popup());
    return true;
}

void XOwnerMenu::TakeMenu(HMENU menu) {
    const int count = GetMenuItemCount(menu);
    for (int i = 0; i < count; ++i) {
        wchar_t text[1000] = L"";
        MENUITEMINFOW info = Asking(MIIM_FTYPE | MIIM_ID | MIIM_SUBMENU | MIIM_STRING);
        info.dwTypeData = text;
        info.cch = 1000;
        if (!GetMenuItemInfoW(menu, static_cast<UINT>(i), TRUE, &info))
            continue;
        // The text stays with the menu, too, for tools that read the screen aloud.
        const HMENU subMenu = info.hSubMenu;
        info.fMask = MIIM_FTYPE | MIIM_DATA;
        info.fType |= MFT_OWNERDRAW;
        if (info.fType & MFT_SEPARATOR) {
            info.dwItemData = reinterpret_cast<ULONG_PTR>(&Separator);
        } else {
            clMenuItem* item = Items.AddNew();
            item->Id = info.wID;
            item->Text = ShownText(text, item->AccessKey);
            item->HasStrip = 1;
            item->HasArrow = subMenu != nullptr;
            Build(*item);
            info.dwItemData = reinterpret_cast<ULONG_PTR>(item);
        }
        SetMenuItemInfoW(menu, static_cast<UINT>(i), TRUE, &info);
        if (subMenu)
            TakeMenu(subMenu);
    }
}

bool XOwnerMenu::AddItem(const clMenuEntry& entry, bool withIcon) {
    if (!Menu) {
        Menu = CreatePopupMenu();
        OwnsMenu = 1;
    }
    const HMENU parent = entry.Parent ? entry.Parent : Popup();
    MENUITEMINFOW info = Asking(MIIM_FTYPE | MIIM_DATA);
    info.fType = MFT_OWNERDRAW | MFT_SEPARATOR;
    info.dwItemData = reinterpret_cast<ULONG_PTR>(&Separator);
    XString systemText;
    clMenuItem* item = nullptr;
    if (entry.Text) {
        item = Items.AddNew();
        item->Id = entry.Id;
        item->Text = entry.Text;
        item->AccessKey = Capital(item->Text.CharAt(1));
        item->HasStrip = withIcon;
        item->Icon.Reset(entry.Icon ? CopyIcon(entry.Icon) : nullptr);
        Build(*item);
        systemText = item->Text;
        systemText.Replace(L"&", L"&&");
        info.fMask |= MIIM_ID | MIIM_STRING;
        info.fType = MFT_OWNERDRAW;
        info.wID = entry.Id;
        info.dwTypeData = systemText.Buffer();
        info.dwItemData = reinterpret_cast<ULONG_PTR>(item);
    }
    Separator.Clear(); // it shows the strip if any item does
    const bool isAdded = InsertMenuItemW(parent, static_cast<UINT>(entry.Position), TRUE, &info) != 0;
    if (!isAdded && item)
        Items.DeleteAt(Items.Count() - 1);
    return isAdded;
}

void XOwnerMenu::SetItemIcon(UINT id, HICON icon) {
    if (clMenuItem* item = Find(id)) {
        item->Icon.Reset(icon ? CopyIcon(icon) : nullptr);
        Build(*item);
    }
}

void XOwnerMenu::RemoveItem(UINT id) {
    Current = nullptr;
    DeleteMenu(Menu, id, MF_BYCOMMAND);
    for (std::int64_t i = Items.Count() - 1; i >= 0; --i)
        if (Items[i].Id == id)
            Items.DeleteAt(i);
}

void XOwnerMenu::EnableItem(UINT id, bool enable) {
    EnableMenuItem(Menu, id, MF_BYCOMMAND | (enable ? MF_ENABLED : MF_GRAYED));
}

void XOwnerMenu::CheckItem(UINT id, bool check) {
    CheckMenuItem(Menu, id, MF_BYCOMMAND | (check ? MF_CHECKED : MF_UNCHECKED));
}

void XOwnerMenu::Reset() {
    if (OwnsMenu)
        DestroyMenu(Menu);
    Menu = nullptr;
    OwnsMenu = 0;
    isLoaded = false;
    Current = nullptr;
    Items.Clear();
    Separator.Clear();
    Buffer.Free();
}

HMENU XOwnerMenu::Popup() const noexcept {
    return isLoaded ? GetSubMenu(Menu, 0) : Menu;
}

clMenuItem* XOwnerMenu::Find(UINT id) const noexcept {
    for (clMenuItem& item : Items)
        if (item.Id == id)
            return &item;
    return nullptr;
}

UINT XOwnerMenu::Track(HWND window) {
    POINT cursor{};
    GetCursorPos(&cursor);
    return TrackAt(window, cursor.x, cursor.y);
}

UINT XOwnerMenu::TrackAt(HWND window, int x, int y) {
    return static_cast<UINT>(TrackPopupMenu(Popup(), trackFlags, x, y, 0, window, nullptr));
}

UINT XOwnerMenu::TrackBelow(HWND window, HWND control) {
    // With the control kept free the menu goes above it where the screen ends below.
    TPMPARAMS keepFree{};
    keepFree.cbSize = sizeof keepFree;
    if (!GetWindowRect(control, &keepFree.rcExclude))
        return 0;
    return static_cast<UINT>(TrackPopupMenuEx(Popup(), trackFlags | TPM_VERTICAL, keepFree.rcExclude.left,
                                              keepFree.rcExclude.bottom, window, &keepFree));
}

LRESULT XOwnerMenu::OnParentMessage(HWND, UINT message, WPARAM wParam, LPARAM lParam,
                                    std::uint32_t& handled) {
    if (!Menu)
        return 0;
    if (message == WM_MEASUREITEM) {
        auto* measure = reinterpret_cast<MEASUREITEMSTRUCT*>(lParam);
        if (measure->CtlType == ODT_MENU && Owns(measure->itemData)) {
            Measure(*measure);
            handled = 1;
            return TRUE;
        }
    } else if (message == WM_DRAWITEM) {
        const auto* draw = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        if (draw->CtlType == ODT_MENU && Owns(draw->itemData)) {
            Draw(*draw);
            handled = 1;
            return TRUE;
        }
    } else if (message == WM_MENUCHAR) {
        return FindByKey(reinterpret_cast<HMENU>(lParam), Capital(static_cast<wchar_t>(LOWORD(wParam))),
                         handled);
    }
    return 0;
}

std::uint32_t XOwnerMenu::MaskOf(UINT itemState, UINT menuState) noexcept {
    return (itemState & ODS_SELECTED ? menuSelected : menuUnselected) |
           (menuState & MFS_CHECKED ? menuChecked : menuUnchecked) |
           (menuState & MFS_DISABLED ? menuDisabled : menuEnabled);
}

bool XOwnerMenu::Owns(ULONG_PTR itemData) {
    if (itemData == reinterpret_cast<ULONG_PTR>(&Separator)) {
        Current = nullptr;
        return true;
    }
    for (clMenuItem& item : Items)
        if (itemData == reinterpret_cast<ULONG_PTR>(&item)) {
            Current = &item;
            return true;
        }
    return false;
}

bool XOwnerMenu::HasStrip() const noexcept {
    for (const clMenuItem& item : Items)
        if (item.HasStrip)
            return true;
    return false;
}

clMenuLook XOwnerMenu::Look(bool hasStrip) const {
    clMenuLook look;
    look.Strip = hasStrip && IconWidth > 0 ? IconWidth + 3 : 0;
    look.IconHeight = IconHeight;
    look.FontHeight = ScaleToDpi(fontHeight);
    look.Scale96 = ScaleToDpi(96);
    return look;
}

void XOwnerMenu::Build(clMenuItem& item) const {
    BuildMenuItem(item.Records, item.Text, item.Icon.Get(), Look(item.HasStrip));
}

XDisplayList& XOwnerMenu::SeparatorList() {
    if (Separator.Fills.IsEmpty())
        BuildMenuSeparator(Separator, Look(HasStrip()));
    return Separator;
}

void XOwnerMenu::Measure(MEASUREITEMSTRUCT& measure) {
    if (!Current) {
        measure.itemWidth = 0;
        measure.itemHeight = static_cast<UINT>(ScaleToDpi(separatorHeight));
        return;
    }
    SIZE size{};
    Current->Records.FitTo(0, 0);
    Current->Records.Measure(size);
    measure.itemWidth = static_cast<UINT>(size.cx + (Current->HasArrow ? ScaleToDpi(arrowWidth) : 0));
    measure.itemHeight = static_cast<UINT>(std::max<int>(size.cy, IconHeight) + 2);
}

void XOwnerMenu::Draw(const DRAWITEMSTRUCT& draw) {
    XDisplayList& list = Current ? Current->Records : SeparatorList();
    const int width = draw.rcItem.right - draw.rcItem.left, height = draw.rcItem.bottom - draw.rcItem.top;
    if (Buffer.Width() < width || Buffer.Height() < height)
        Buffer.Create(draw.hDC, std::max(width, Buffer.Width()), std::max(height, Buffer.Height()));
    list.FitTo(width, height);
    list.ActiveMask =
        MaskOf(draw.itemState, MenuState(reinterpret_cast<HMENU>(draw.hwndItem), draw.itemData));
    list.Paint(Buffer.Dc, 0, 0);
    Buffer.Blit(draw.hDC, draw.rcItem.left, draw.rcItem.top, width, height);
}

LRESULT XOwnerMenu::FindByKey(HMENU menu, wchar_t key, std::uint32_t& handled) {
    const int count = GetMenuItemCount(menu);
    int first = -1, next = -1, found = 0;
    bool isPastHighlight = false;
    for (int i = 0; i < count; ++i) {
        MENUITEMINFOW info = Asking(MIIM_DATA | MIIM_STATE);
        if (!GetMenuItemInfoW(menu, static_cast<UINT>(i), TRUE, &info) || !Owns(info.dwItemData) || !Current)
            continue;
        if (Current->AccessKey == key && !(info.fState & MFS_DISABLED)) {
            ++found;
            if (first < 0)
                first = i;
            if (isPastHighlight && next < 0)
                next = i;
        }
        isPastHighlight |= (info.fState & MFS_HILITE) != 0;
    }
    if (!found)
        return 0;
    handled = 1;
    return MAKELRESULT(next < 0 ? first : next, found == 1 ? MNC_EXECUTE : MNC_SELECT);
}
