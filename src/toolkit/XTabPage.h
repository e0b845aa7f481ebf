// A tab control of which each tab shows one page window. A form derives from it, sets `Tabs` in its
// OnInit, and hands all its messages to OnParentMessage.
#pragma once

#include "foundation/XArray.h"

#include <windows.h>

#include <cstdint>

class XTabPage {
public:
    XTabPage() = default;
    virtual ~XTabPage() = default;
    XTabPage(const XTabPage&) = delete;
    XTabPage& operator=(const XTabPage&) = delete;

    // After the page of the chosen tab is shown. A choice by the program (TCM_SETCURSEL) does not call it.
    virtual void OnTabSelected(int index);
    virtual void OnTabChanging(int index); // `index` is the tab that is about to be left

    // Adds a tab at the end. `page` is borrowed and may be null for a tab without a window of its own;
    // it is shown if its tab is the selected one, hidden otherwise. `image` is an index into the tab
    // control's image list, -1 for none. Returns the tab's index, -1 on failure.
    int AddPage(const wchar_t* title, HWND page, int image = -1);
    // Moves `page`, a sibling of the tab control, into its display area.
    void Fit(HWND page) const;
    // To be called from the form's PreMessage; returns the message's result when it sets `handled`.
    LRESULT OnParentMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, std::uint32_t& handled);

    [[nodiscard]] HWND Page(int index) const noexcept; // borrowed; null too when out of range

    HWND Tabs = nullptr;    // borrowed
    XPointerSlots Pages;    // HWND, parallel to the tabs
    XPointerSlots PageData; // a free 64-bit word for each page, 0 when it is added

private:
    void ShowPage(int index) const; // hides all others
};
