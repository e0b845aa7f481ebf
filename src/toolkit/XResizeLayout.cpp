// Placing controls and dragging the corner.
#include "toolkit/XResizeLayout.h"

namespace {
constexpr UINT moveFlags = SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER;
constexpr UINT sizeFlags = SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER;
static_assert(moveFlags == 0x215 && sizeFlags == 0x216);
} // namespace

int DialogX(HWND dialog, int units) {
    RECT r{units, 1, 1, 1};
    MapDialogRect(dialog, &r);
    return r.left;
}

int DialogY(HWND dialog, int units) {
    RECT r{1, units, 1, 1};
    MapDialogRect(dialog, &r);
    return r.top;
}

void MoveControl(HWND control, int x, int y) {
    if (control)
        SetWindowPos(control, nullptr, x, y, 0, 0, moveFlags);
}

void SizeControl(HWND control, int width, int height) {
    if (control)
        SetWindowPos(control, nullptr, 0, 0, width, height, sizeFlags);
}

XLayoutScope::XLayoutScope(HWND form) : form(form) {
    SendMessageW(form, WM_SETREDRAW, FALSE, 0);
}

XLayoutScope::~XLayoutScope() {
    SendMessageW(form, WM_SETREDRAW, TRUE, 0);
    // The children too: moved while the form counted as hidden, they were not marked, and a form
    // that clips them does not pass its own mark on.
    RedrawWindow(form, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

void XResizeCorner::Place(int clientWidth, int clientHeight) {
    const HWND corner = form.Control(controlId);
    MoveControl(corner, clientWidth - sizePixels, clientHeight - sizePixels);
    if (corner)
        ShowWindow(corner, IsZoomed(form.Hwnd) ? SW_HIDE : SW_SHOW);
}

bool XResizeCorner::HitTest(int x, int y) const {
    if (!form.Hwnd || IsZoomed(form.Hwnd))
        return false;
    RECT client{};
    GetClientRect(form.Hwnd, &client);
    return x >= client.right - sizePixels && y >= client.bottom - sizePixels;
}

void XResizeCorner::OnMouseDown(int x, int y, UINT message) {
    if (message != WM_LBUTTONDOWN || !HitTest(x, y))
        return;
    GetCursorPos(&ResizeFrom);
    Resizing = true;
    SetCapture(form.Hwnd);
}

void XResizeCorner::OnMouseMove(int x, int y) {
    if (Resizing) {
        POINT cursor{};
        GetCursorPos(&cursor);
        RECT window{};
        GetWindowRect(form.Hwnd, &window);
        form.MoveTo(keepPosition, keepPosition, window.right - window.left + cursor.x - ResizeFrom.x,
                    window.bottom - window.top + cursor.y - ResizeFrom.y);
        ResizeFrom = cursor;
    }
    if (const bool hot = HitTest(x, y); hot != CornerHot) {
        CornerHot = hot;
        const HCURSOR cursor = LoadCursorW(nullptr, hot ? IDC_SIZENWSE : IDC_ARROW);
        SetClassLongPtrW(form.Hwnd, GCLP_HCURSOR, reinterpret_cast<LONG_PTR>(cursor));
        form.Cursor.Reset();
    }
}

void XResizeCorner::OnMouseUp(UINT message) {
    if (message != WM_LBUTTONUP || !Resizing)
        return;
    ReleaseCapture();
    Resizing = false;
}
