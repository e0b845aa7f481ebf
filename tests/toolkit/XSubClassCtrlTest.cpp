// The interception of a real control's messages.
#include "toolkit/XSubClassCtrl.h"
#include "Recorder.h"
#include "toolkit/XToolkitState.h"

#include <gtest/gtest.h>

namespace {
constexpr UINT ask = WM_USER + 100;
constexpr UINT askInside = WM_USER + 101;
constexpr UINT detach = WM_USER + 102;

class Listener : public XSubClassCtrl {
public:
    LRESULT OnMessage(HWND hwnd, UINT message, WPARAM, LPARAM, std::uint32_t& handled) override {
        cleanFlag = cleanFlag && handled == 0;
        setTexts += message == WM_SETTEXT;
        locked = IsTakenForOthers(Toolkit().SubclassLock);
        if (message == detach)
            Detach();
        if (message != ask && message != askInside)
            return 99; // not taken: nobody sees this value
        handled = 1;
        return message == ask ? 7 : SendMessageW(hwnd, ask, 0, 0) + 1;
    }
    int setTexts = 0;
    bool locked = false;
    bool cleanFlag = true;
};

class XSubClassCtrlTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(form.CreateEmptyDialog());
        edit = CreateWindowExW(0, L"EDIT", L"first", WS_CHILD, 0, 0, 50, 20, form.Hwnd,
                               reinterpret_cast<HMENU>(INT_PTR{1013}), nullptr, nullptr);
        ASSERT_EQ(form.Control(1013), edit);
        before = GetWindowLongPtrW(edit, GWLP_WNDPROC);
    }
    bool IsRestored() {
        return GetWindowLongPtrW(edit, GWLP_WNDPROC) == before && GetWindowLongPtrW(edit, GWLP_USERDATA) == 0;
    }
    Recorder form;
    HWND edit = nullptr;
    LONG_PTR before = 0;
};

TEST_F(XSubClassCtrlTest, TakesSomeMessagesAndPassesTheOthersOn) {
    Listener listener;
    listener.Attach(edit);
    EXPECT_EQ(SendMessageW(edit, ask, 0, 0), 7);
    EXPECT_EQ(SendMessageW(edit, askInside, 0, 0), 8); // re-entered by its own thread
    EXPECT_TRUE(listener.cleanFlag);
    EXPECT_TRUE(listener.locked);
    EXPECT_FALSE(IsTakenForOthers(Toolkit().SubclassLock));
    EXPECT_EQ(SendMessageW(edit, WM_GETTEXTLENGTH, 0, 0), 5);
    SetWindowTextW(edit, L"second");
    EXPECT_EQ(GetWindowTextLengthW(edit), 6);
    EXPECT_EQ(listener.setTexts, 1);
}

TEST_F(XSubClassCtrlTest, DetachesByAttachNullByItsEndAndInsideAMessage) {
    {
        Listener listener;
        listener.Attach(edit);
        EXPECT_FALSE(IsRestored());
        listener.Attach(nullptr);
        EXPECT_TRUE(IsRestored());
        EXPECT_EQ(listener.Hwnd, nullptr);
        listener.Attach(edit);
        listener.Attach(edit);
        EXPECT_EQ(SendMessageW(edit, ask, 0, 0), 7);
        SendMessageW(edit, detach, 0, 0);
        EXPECT_TRUE(IsRestored());
        listener.Attach(edit);
    }
    EXPECT_TRUE(IsRestored());
    EXPECT_EQ(SendMessageW(edit, ask, 0, 0), 0);
}

TEST_F(XSubClassCtrlTest, NoWindowLeavesItDetached) {
    DestroyWindow(edit);
    Listener listener;
    listener.Attach(edit);
    EXPECT_EQ(listener.Hwnd, nullptr);
    EXPECT_EQ(listener.OldProc, nullptr);
}

TEST_F(XSubClassCtrlTest, AnEqualTextIsNotWrittenAgain) {
    Listener listener;
    listener.Attach(edit);
    XString shown;
    EXPECT_FALSE(SetTextIfChanged(edit, shown, L""));
    EXPECT_TRUE(SetTextIfChanged(edit, shown, L"1 Second"));
    EXPECT_FALSE(SetTextIfChanged(edit, shown, L"1 Second"));
    EXPECT_TRUE(SetTextIfChanged(nullptr, shown, L"2 Seconds"));
    EXPECT_EQ(listener.setTexts, 1);
    EXPECT_EQ(shown, L"2 Seconds");
}
} // namespace
