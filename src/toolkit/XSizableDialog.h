// A dialog with the corner that resizes it. Leaving it by Cancel or by its close box ends it with 0.
#pragma once

#include "toolkit/XResizeLayout.h"

class XSizableDialog : public XWindow {
public:
    void OnMouseDown(int x, int y, UINT message, WPARAM) override { corner.OnMouseDown(x, y, message); }
    void OnMouseUp(int, int, UINT message, WPARAM) override { corner.OnMouseUp(message); }
    void OnMouseMove(int x, int y, WPARAM) override { corner.OnMouseMove(x, y); }
    void OnCancel() override { EndDialog(Hwnd, 0); }
    void OnClose() override { EndDialog(Hwnd, 0); }

protected:
    XResizeCorner corner{*this}; // the derived form places it in its OnSize
};
