// Showing the page of the chosen tab.
#include "toolkit/XTabPage.h"

#include <commctrl.h>

void XTabPage::OnTabSelected(int) {}

void XTabPage::OnTabChanging(int) {}

int XTabPage::AddPage(const wchar_t* title, HWND page, int image) {
    TCITEMW item{};
    item.mask = TCIF_TEXT | (image != -1 ? TCIF_IMAGE : 0);
    item.pszText = const_cast<wchar_t*>(title ? title : L"");
    item.iImage = image;
    const int index = TabCtrl_InsertItem(Tabs, Pages.count, &item);
    // Zero is also what a missing control answers; the two lists must not part.
    if (!Tabs || index != Pages.count)
        return -1;
    Pages.Add(page);
    PageData.Add(nullptr);
    ShowPage(TabCtrl_GetCurSel(Tabs));
    return index;
}

void XTabPage::Fit(HWND page) const {
    RECT area;
    if (!page || !GetWindowRect(Tabs, &area))
        return;
    MapWindowPoints(nullptr, GetParent(Tabs), reinterpret_cast<POINT*>(&area), 2);
    TabCtrl_AdjustRect(Tabs, FALSE, &area);
    MoveWindow(page, area.left, area.top, area.right - area.left, area.bottom - area.top, TRUE);
}

LRESULT XTabPage::OnParentMessage(HWND, UINT message, WPARAM, LPARAM lParam, std::uint32_t& handled) {
    if (message != WM_NOTIFY || !Tabs)
        return 0;
    const auto* header = reinterpret_cast<const NMHDR*>(lParam);
    if (header->hwndFrom != Tabs)
        return 0;
    if (header->code == TCN_SELCHANGE) {
        const int index = TabCtrl_GetCurSel(Tabs);
        ShowPage(index);
        OnTabSelected(index);
        handled = 1;
    } else if (header->code == TCN_SELCHANGING) {
        OnTabChanging(TabCtrl_GetCurSel(Tabs));
        handled = 1;
    }
    return 0;
}

HWND XTabPage::Page(int index) const noexcept {
    return index >= 0 && index < Pages.count ? static_cast<HWND>(Pages.items[index]) : nullptr;
}

void XTabPage::ShowPage(int index) const {
    // The new page first: when all are hidden in between, the form shows through.
    if (const HWND page = Page(index))
        ShowWindow(page, SW_SHOW);
    for (int i = 0; i < Pages.count; ++i)
        if (i != index && Page(i) && Page(i) != Page(index))
            ShowWindow(Page(i), SW_HIDE);
}
