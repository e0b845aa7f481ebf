// Which operation a message calls, and what becomes of its result.
#include "Recorder.h"
#include "toolkit/XToolkitState.h"

#include <gtest/gtest.h>

namespace {
const HWND other = reinterpret_cast<HWND>(LONG_PTR{7});
constexpr LPARAM otherParam = 7;
constexpr LPARAM minusTwoMinusThree = MAKELPARAM(0xFFFE, 0xFFFD);

NMHDR header{nullptr, 1, 333};
DRAWITEMSTRUCT draw{0, 5, 0, 0, 44, other, nullptr, {}, 0};

struct Row {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    const char* expected;
};
const Row table[] = {
    {WM_ACTIVATE, MAKEWPARAM(2, 1), otherParam, "OnActivate 7 1 2;"},
    {WM_ACTIVATE, MAKEWPARAM(0, 1), otherParam, "OnDeactivate 7 1;"},
    {WM_CLOSE, 0, 0, "OnClose;"},
    {WM_CONTEXTMENU, 7, minusTwoMinusThree, "OnContextMenu 7 65534 65533;"},
    {WM_DRAWITEM, 5, reinterpret_cast<LPARAM>(&draw), "OnDrawItem 7 5 44;"},
    {WM_ERASEBKGND, 9, 0, "OnEraseBackground 9;"},
    {WM_SHOWWINDOW, 0, 3, "OnHide 3;"},
    {WM_SHOWWINDOW, 1, 0, "OnShow 0;"},
    {WM_KEYDOWN, 65, 17, "OnKeyDown 65 17;"},
    {WM_KEYUP, 65, 17, "OnKeyUp 65 17;"},
    {WM_CHAR, 0x1263A, 1, "OnChar 9786;"},
    {WM_LBUTTONDOWN, 1, minusTwoMinusThree, "OnMouseDown -2 -3 513 1;"},
    {WM_RBUTTONDOWN, 2, 0, "OnMouseDown 0 0 516 2;"},
    {WM_MBUTTONDOWN, 16, 0, "OnMouseDown 0 0 519 16;"},
    {WM_LBUTTONUP, 0, minusTwoMinusThree, "OnMouseUp -2 -3 514 0;"},
    {WM_RBUTTONUP, 0, 0, "OnMouseUp 0 0 517 0;"},
    {WM_MBUTTONUP, 0, 0, "OnMouseUp 0 0 520 0;"},
    {WM_MOUSEMOVE, 8, minusTwoMinusThree, "OnMouseMove -2 -3 8;"},
    {WM_MOUSEWHEEL, MAKEWPARAM(4, 0xFF88), minusTwoMinusThree, "OnMouseWheel -2 -3 -120 4;"},
    {WM_MOVE, 0, minusTwoMinusThree, "OnMove -2 -3;"},
    {WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&header), "OnNotify 333;"},
    {WM_PAINT, 0, 0, "OnPaint;"},
    {WM_SIZE, 2, minusTwoMinusThree, "OnSize 65534 65533 2;"},
    {WM_SYSCOMMAND, 0x0123, 0, "OnSysCommand 288;"},
    {WM_SYSCOMMAND, SC_CLOSE | 5, 0, "OnSysCommand 61536;OnClose;"}, // the system acts on it all the same
    {WM_CTLCOLORSTATIC, 0, 0, "OnColorStatic;"},
    {WM_CTLCOLORDLG, 0, 0, "OnColorDialog;"},
    {WM_COMMAND, MAKEWPARAM(0, 0), otherParam, "OnCommand 0 7 0;"},
    {WM_COMMAND, MAKEWPARAM(1, 0), otherParam, "OnOK;OnCommand 1 7 0;"},
    {WM_COMMAND, MAKEWPARAM(1, 5), otherParam, "OnCommand 1 7 5;"},
    {WM_COMMAND, MAKEWPARAM(2, 0), 0, "OnCancel;OnCommand 2 0 0;"},
    {WM_COMMAND, MAKEWPARAM(3, 0), 0, "OnAbort;OnCommand 3 0 0;"},
    {WM_COMMAND, MAKEWPARAM(6, 0), 0, "OnYes;OnCommand 6 0 0;"},
    {WM_COMMAND, MAKEWPARAM(9, 0), 0, "OnHelp;OnCommand 9 0 0;"},
    {WM_COMMAND, MAKEWPARAM(9, 1), 0, "OnCommand 9 0 1;"},
    {WM_COMMAND, MAKEWPARAM(10, 0), 0, "OnCommand 10 0 0;"},
    {WM_COMMAND, MAKEWPARAM(40002, 0), 0, "OnCommand 40002 0 0;"},
    {WM_USER + 3, 1, 2, ""},
};

// Each row in a plain window and in a dialog.
class XWindowDispatch : public testing::TestWithParam<bool> {
protected:
    void SetUp() override {
        if (GetParam())
            ASSERT_TRUE(window.CreateEmptyDialog());
        else
            window.CreatePlain();
        ASSERT_NE(window.Hwnd, nullptr);
        ASSERT_EQ(window.IsDialog, GetParam());
    }
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        window.log.clear();
        return SendMessageW(window.Hwnd, message, wParam, lParam);
    }
    Recorder window;
};

TEST_P(XWindowDispatch, EachMessageCallsItsOperationOnce) {
    EXPECT_EQ(window.Take().rfind("OnInit;", 0), 0u); // before all others
    ValidateRect(window.Hwnd, nullptr);
    for (const Row& row : table) {
        Send(row.message, row.wParam, row.lParam);
        EXPECT_EQ(window.Take(), row.expected) << row.message << ' ' << row.wParam;
    }
    const HWND hwnd = window.Hwnd;
    window.Destroy();
    EXPECT_NE(window.Take().find("OnDestroy;"), std::string::npos);
    EXPECT_FALSE(IsWindow(hwnd));
}

TEST_P(XWindowDispatch, ResultFollowsTheFlag) {
    const LPARAM notice = reinterpret_cast<LPARAM>(&header);
    window.answer = 77;
    EXPECT_EQ(Send(WM_NOTIFY, 1, notice), 77);
    EXPECT_EQ(Send(WM_CTLCOLORSTATIC), 77);
    EXPECT_EQ(Send(WM_CTLCOLORDLG), 77);
    EXPECT_EQ(Send(WM_ERASEBKGND, 9), 1);
    const HDC dc = GetDC(window.Hwnd);
    window.leave = true;
    EXPECT_NE(Send(WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc), reinterpret_cast<LPARAM>(window.Hwnd)),
              77);
    if (!GetParam()) { // the dialog's own class paints; ours has no background brush
        EXPECT_EQ(Send(WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc)), 0);
    }
    ReleaseDC(window.Hwnd, dc);
}

TEST_P(XWindowDispatch, PreMessageEndsTheDispatch) {
    window.takeBefore = WM_GETTEXTLENGTH;
    window.answerBefore = 55;
    EXPECT_EQ(Send(WM_GETTEXTLENGTH), 55);
    window.takeBefore = WM_COMMAND;
    EXPECT_EQ(Send(WM_COMMAND, 1), 55);
    EXPECT_EQ(window.log, "");
    window.takeBefore = 0; // a value without the flag counts for nothing
    EXPECT_EQ(Send(WM_COMMAND, 1), 0);
    EXPECT_EQ(window.log, "OnOK;OnCommand 1 0 0;");
    // A dialog answers this message with what its procedure returns, and that is the flag.
    window.takeBefore = WM_CTLCOLORSTATIC;
    EXPECT_EQ(Send(WM_CTLCOLORSTATIC), GetParam() ? 1 : 55);
}

TEST_P(XWindowDispatch, AnInnerMessageDoesNotDecideOverTheOuter) {
    window.answer = 77;
    window.sendInside = WM_USER + 3;
    EXPECT_EQ(Send(WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&header)), 77);
}

TEST_P(XWindowDispatch, PaintReachesTheSystem) {
    ShowWindow(window.Hwnd, SW_SHOWNA);
    InvalidateRect(window.Hwnd, nullptr, TRUE);
    window.log.clear();
    UpdateWindow(window.Hwnd);
    EXPECT_EQ(window.log.rfind("OnPaint;", 0), 0u);
    EXPECT_FALSE(GetUpdateRect(window.Hwnd, nullptr, FALSE));
}

TEST_P(XWindowDispatch, TimersAreFoundUnderTheirLock) {
    EXPECT_EQ(window.AddTimer(100000), 1u);
    EXPECT_EQ(window.AddTimer(100000, 5), 5u);
    EXPECT_EQ(window.AddTimer(100000), 6u);
    EXPECT_EQ(window.TimerNames.Count(), 3);
    Send(WM_TIMER, 5);
    EXPECT_EQ(window.log, "OnTimer 5 0;");
    EXPECT_TRUE(window.lockedInTimer);
    EXPECT_EQ(window.addedInTimer, 7u); // the lock's owner may re-enter
    EXPECT_FALSE(IsTakenForOthers(window.Lock));
    EXPECT_EQ(Send(WM_TIMER, 99), 0);
    EXPECT_EQ(window.log, "");

    const HWND hwnd = window.Hwnd;
    window.Destroy();
    window.log.clear();
    EXPECT_TRUE(window.Timers.IsEmpty() && window.TimerNames.IsEmpty());
    const MSG late{hwnd, WM_TIMER, 5, 0, 0, {}};
    DispatchMessageW(&late);
    EXPECT_EQ(window.log, "");
    EXPECT_EQ(window.AddTimer(100000), 0u);
}

TEST_P(XWindowDispatch, AHandleWithoutObjectGoesToTheSystem) {
    SetWindowTextW(window.Hwnd, L"five!");
    const HWND hwnd = std::exchange(window.Hwnd, nullptr);
    EXPECT_EQ(SendMessageW(hwnd, WM_GETTEXTLENGTH, 0, 0), 5);
    window.log.clear();
    SendMessageW(hwnd, WM_COMMAND, 1, 0);
    EXPECT_EQ(window.log, "");
    window.Hwnd = hwnd;
}

INSTANTIATE_TEST_SUITE_P(PlainAndDialog, XWindowDispatch, testing::Bool());
} // namespace
