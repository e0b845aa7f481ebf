// The context menu of the lists of files, and the changes to all rows.
#include "forms/review/FileRows.h"

#include "forms/review/LogTexts.h"
#include "resources/ids.h"

#include <algorithm>

namespace {

constexpr int iconEdge = 16;   // pixels
constexpr int scrollStep = 16; // pixels
constexpr int textUnits = 1000;

} // namespace

XIcon SmallIcon(int resourceId) {
    return XIcon(static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(resourceId),
                                               IMAGE_ICON, iconEdge, iconEdge, LR_DEFAULTCOLOR)));
}

XIcon ShowSmallIcon(const XWindow& form, int id, int resourceId) {
    XIcon icon = SmallIcon(resourceId);
    SendMessageW(form.Control(id), STM_SETICON, reinterpret_cast<WPARAM>(icon.Get()), 0);
    return icon;
}

UINT TrackRowMenu(XOwnerMenu& menu, const XListView& list, HWND form, int x, int y, bool canRename) {
    const XIcon check = SmallIcon(ID_ICON_CHECK_ALL);
    const XIcon uncheck = SmallIcon(ID_ICON_UNCHECK_ALL);
    menu.Reset();
    menu.AddItem({ID_ROWS_CHECK_ALL, L"Check All", check.Get()}, true);
    menu.AddItem({ID_ROWS_UNCHECK_ALL, L"Uncheck All", uncheck.Get()}, true);
    menu.AddItem({}, true);
    menu.AddItem({ID_ROWS_UNIQUE_NAMES, L"Give All Unique Filenames (Append Time & Date)"}, true);
    menu.EnableItem(ID_ROWS_UNIQUE_NAMES, canRename);
    const POINT point = list.MenuPoint(x, y);
    const UINT chosen = menu.TrackAt(form, point.x, point.y);
    menu.Reset();
    return chosen;
}

void CheckAllRows(XListView& list, bool checked) {
    const XListUpdate update(list);
    list.SetChecked(-1, checked);
}

XString UniqueSuffix() {
    wchar_t date[textUnits] = L"";
    wchar_t time[textUnits] = L"";
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, date, textUnits);
    GetTimeFormatW(LOCALE_USER_DEFAULT, TIME_FORCE24HOURFORMAT, nullptr, nullptr, time, textUnits);
    return XString(L" - ") + date + L" " + time;
}

void AppendToAllRows(XListView& list, const wchar_t* suffix) {
    const XListUpdate update(list);
    const int rows = list.RowCount();
    for (int row = 0; row < rows; ++row)
        list.SetCellText(list.GetCellText(row, 0) + suffix, row, 0);
}

// A report scrolls by whole rows, and less than one would be none.
void ScrollRows(const XListView& list, int delta) {
    RECT row{};
    if (list.RowCount() == 0 || !ListView_GetItemRect(list.List, 0, &row, LVIR_BOUNDS))
        return;
    ListView_Scroll(list.List, 0, -WheelSteps(delta) * std::max<int>(scrollStep, row.bottom - row.top));
}
