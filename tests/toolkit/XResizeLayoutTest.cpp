// Layouts that redraw once, and the corner that resizes its window.
#include "toolkit/XResizeLayout.h"
#include "Recorder.h"

#include <gtest/gtest.h>

namespace {
class XResizeLayoutTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(form.CreateEmptyDialog());
        client = ClientOf(form.Hwnd);
    }
    Recorder form;
    XResizeCorner corner{form};
    RECT client{};
};

TEST_F(XResizeLayoutTest, LayoutRedrawsTheFormOnceAtItsEnd) {
    ShowWindow(form.Hwnd, SW_SHOWNA);
    UpdateWindow(form.Hwnd);
    form.log.clear();
    {
        const XLayoutScope layout(form.Hwnd);
        InvalidateRect(form.Hwnd, nullptr, FALSE);
        UpdateWindow(form.Hwnd);
        EXPECT_EQ(form.log.find("OnPaint"), std::string::npos);
    }
    EXPECT_NE(form.log.find("OnPaint"), std::string::npos);
}

TEST_F(XResizeLayoutTest, DraggingTheCornerGrowsTheWindow) {
    const RECT before = PlaceOf(form.Hwnd);
    corner.OnMouseDown(client.right - 1, client.bottom - 1, WM_RBUTTONDOWN);
    corner.OnMouseDown(client.right - 1, client.bottom - 17, WM_LBUTTONDOWN); // above it
    corner.OnMouseDown(client.right - 17, client.bottom - 1, WM_LBUTTONDOWN);
    EXPECT_FALSE(corner.Resizing);
    corner.OnMouseDown(client.right - 16, client.bottom - 16, WM_LBUTTONDOWN);
    ASSERT_TRUE(corner.Resizing);
    EXPECT_EQ(GetCapture(), form.Hwnd);
    corner.ResizeFrom.x -= 30; // as if the cursor had come from there
    corner.ResizeFrom.y -= 20;
    corner.OnMouseMove(client.right + 29, client.bottom + 19);
    const RECT after = PlaceOf(form.Hwnd);
    EXPECT_TRUE(after.left == before.left && after.right == before.right + 30);
    EXPECT_TRUE(after.top == before.top && after.bottom == before.bottom + 20);
    EXPECT_TRUE(corner.CornerHot);
    const auto classCursor = [&] {
        return reinterpret_cast<HCURSOR>(GetClassLongPtrW(form.Hwnd, GCLP_HCURSOR));
    };
    EXPECT_EQ(classCursor(), LoadCursorW(nullptr, IDC_SIZENWSE));
    corner.OnMouseUp(WM_LBUTTONUP);
    EXPECT_EQ(GetCapture(), nullptr);
    corner.OnMouseMove(0, 0);
    EXPECT_FALSE(corner.CornerHot);
    EXPECT_EQ(classCursor(), LoadCursorW(nullptr, IDC_ARROW));
}
} // namespace
