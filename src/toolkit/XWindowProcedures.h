// The two procedures that serve all windows, and the list that leads from a handle to its object.
#pragma once

#include "toolkit/XWindow.h"

class XWindowProcedures {
public:
    // WM_CREATE's and WM_INITDIALOG's parameter is the XWindow that the handle belongs to from then
    // on; earlier messages reach no object.
    static LRESULT CALLBACK Plain(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    static INT_PTR CALLBACK Dialog(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    static void Enlist(XWindow* window);
    static void Forget(const XWindow* window); // its first occurrence
    [[nodiscard]] static XWindow* Find(HWND hwnd);
};
