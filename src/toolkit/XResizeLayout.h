// What resizable forms share in their OnSize and mouse operations: placing controls by dialog units
// and the corner that resizes the window.
#pragma once

#include "toolkit/XWindow.h"

// Dialog units of this dialog to pixels, across and down.
[[nodiscard]] int DialogX(HWND dialog, int units);
[[nodiscard]] int DialogY(HWND dialog, int units);

// In client pixels. Neither changes the order of windows or activates; null does nothing.
void MoveControl(HWND control, int x, int y);
void SizeControl(HWND control, int width, int height);

// Holds back all drawing of a form while its controls move; redraws it whole at the end.
class XLayoutScope {
public:
    explicit XLayoutScope(HWND form);
    ~XLayoutScope();
    XLayoutScope(const XLayoutScope&) = delete;
    XLayoutScope& operator=(const XLayoutScope&) = delete;

private:
    HWND form;
};

// The corner at the bottom right. A form holds one and hands it the operations of these names.
class XResizeCorner {
public:
    static constexpr int controlId = 1010; // the static control with the corner's icon
    static constexpr int sizePixels = 16;

    explicit XResizeCorner(XWindow& form) : form(form) {}

    void Place(int clientWidth, int clientHeight); // from OnSize; hides it while maximised
    [[nodiscard]] bool HitTest(int x, int y) const;
    void OnMouseDown(int x, int y, UINT message);
    void OnMouseMove(int x, int y);
    void OnMouseUp(UINT message);

    POINT ResizeFrom{}; // screen pixels
    bool Resizing = false;
    bool CornerHot = false;

private:
    XWindow& form;
};
