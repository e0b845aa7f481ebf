// Placing controls by dialog units, and the corner that resizes its window.
#include "toolkit/XResizeLayout.h"
#include "Recorder.h"

#include <gtest/gtest.h>

namespace {
class XResizeLayoutTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(form.CreateEmptyDialog());
        GetClientRect(form.Hwnd, &client);
        control =
            CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 0, 0, 16, 16, form.Hwnd,
                            reinterpret_cast<HMENU>(INT_PTR{XResizeCorner::controlId}), nullptr, nullptr);
    }
    RECT InClient(HWND hwnd) {
        RECT r{};
        GetWindowRect(hwnd, &r);
        MapWindowPoints(nullptr, form.Hwnd, reinterpret_cast<POINT*>(&r), 2);
        return r;
    }
    Recorder form;
    XResizeCorner corner{form};
    RECT client{};
    HWND control = nullptr;
};

TEST_F(XResizeLayoutTest, ControlsMoveAndSizeByThemselves) {
    EXPECT_EQ(DialogX(form.Hwnd, 120), client.right); // the client size of the template
    EXPECT_EQ(DialogY(form.Hwnd, 60), client.bottom);
    MoveControl(control, 30, 40);
    SizeControl(control, 50, 60);
    const RECT r = InClient(control);
    EXPECT_TRUE(EqualRect(&r, std::data({RECT{30, 40, 80, 100}})));
    MoveControl(nullptr, 1, 1);
    corner.Place(client.right, client.bottom);
    EXPECT_EQ(InClient(control).left, client.right - 16);
    EXPECT_EQ(InClient(control).top, client.bottom - 16);
}

TEST_F(XResizeLayoutTest, LayoutRedrawsTheFormOnceAtItsEnd) {
    ShowWindow(form.Hwnd, SW_SHOWNA);
    UpdateWindow(form.Hwnd);
    form.log.clear();
    {
        const XLayoutScope layout(form.Hwnd);
        MoveControl(control, 30, 40);
        UpdateWindow(form.Hwnd);
        EXPECT_EQ(form.log.find("OnPaint"), std::string::npos);
    }
    EXPECT_NE(form.log.find("OnPaint"), std::string::npos);
}

TEST_F(XResizeLayoutTest, CornerIsSixteenPixelsWide) {
    const int right = client.right;
    const int bottom = client.bottom;
    EXPECT_TRUE(corner.HitTest(right - 16, bottom - 16));
    EXPECT_TRUE(corner.HitTest(right + 40, bottom + 40));
    EXPECT_FALSE(corner.HitTest(right - 17, bottom - 1));
    EXPECT_FALSE(corner.HitTest(right - 1, bottom - 17));
}

TEST_F(XResizeLayoutTest, DraggingTheCornerGrowsTheWindow) {
    RECT before{};
    GetWindowRect(form.Hwnd, &before);
    corner.OnMouseDown(client.right - 1, client.bottom - 1, WM_RBUTTONDOWN);
    EXPECT_FALSE(corner.Resizing);
    corner.OnMouseDown(client.right - 1, client.bottom - 1, WM_LBUTTONDOWN);
    ASSERT_TRUE(corner.Resizing);
    EXPECT_EQ(GetCapture(), form.Hwnd);
    corner.ResizeFrom.x -= 30; // as if the cursor had come from there
    corner.ResizeFrom.y -= 20;
    corner.OnMouseMove(client.right + 29, client.bottom + 19);
    RECT after{};
    GetWindowRect(form.Hwnd, &after);
    EXPECT_TRUE(
        EqualRect(&after, std::data({RECT{before.left, before.top, before.right + 30, before.bottom + 20}})));
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
