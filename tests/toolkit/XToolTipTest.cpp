// Tool tips on their own thread, with the real cursor.
#include "toolkit/XToolTip.h"
#include "ButtonForm.h"
#include "tests/support/HandleReach.h"
#include "toolkit/XTipThread.h"
#include "toolkit/XToolkitState.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {
// Messages of this thread go on meanwhile, as in a form's loop.
bool Await(const std::function<bool()>& condition, DWORD timeoutMs = 5000) {
    const ULONGLONG end = GetTickCount64() + timeoutMs;
    while (!condition()) {
        if (GetTickCount64() > end)
            return false;
        MSG m;
        while (PeekMessageW(&m, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&m);
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
    }
    return true;
}

HWND WindowOf(XToolTip& tip) {
    const XTipLock lock;
    return tip.Hwnd && IsWindowVisible(tip.Hwnd) ? tip.Hwnd : nullptr;
}

class XToolTipTest : public testing::Test {
protected:
    XToolTipTest() {
        form.Add(button, 10, L"Button");
        form.MoveTo(300);
    }
    bool AwaitShown(bool shown, DWORD timeoutMs = 5000) {
        return Await([&] { return (WindowOf(tip) != nullptr) == shown; }, timeoutMs);
    }
    ButtonForm form;
    NotingButton button{form.log};
    XToolTip tip;
};

TEST_F(XToolTipTest, ShowsOverItsAnchorAndOnceAVisit) {
    tip.Show({.Anchor = button.Window, .Text = L"Over the button", .Delay = 60, .Hold = 1200});
    form.MoveTo(30);
    ASSERT_TRUE(AwaitShown(true));
    EXPECT_EQ(PlaceOf(WindowOf(tip)).bottom, PlaceOf(button.Window).top - 2);
    EXPECT_NE(GetForegroundWindow(), WindowOf(tip));
    ASSERT_TRUE(AwaitShown(false)); // timed out
    EXPECT_FALSE(AwaitShown(true, 300));
    form.MoveTo(300);
    Await([] { return false; }, 150);
    form.MoveTo(30);
    EXPECT_TRUE(AwaitShown(true));
    form.MoveTo(300);
    EXPECT_TRUE(AwaitShown(false, 900)); // at once, and not after its time
}

TEST_F(XToolTipTest, AreaAndHideAndShowAnew) {
    tip.Show({.Area = {100, 0, 390, 90}, .AreaWindow = form.Hwnd, .Text = L"Area", .Delay = 1});
    ASSERT_TRUE(AwaitShown(true));
    tip.Hide();
    ASSERT_TRUE(AwaitShown(false));
    EXPECT_FALSE(AwaitShown(true, 300));
    tip.Show({.FixedX = 500,
              .FixedY = 600,
              .Text = L"Two\rlines",
              .Hold = 300,
              .Icon = LoadIconW(nullptr, IDI_WARNING)});
    ASSERT_NE(WindowOf(tip), nullptr); // no wait was needed
    EXPECT_EQ(PlaceOf(WindowOf(tip)).left, 500);
    EXPECT_EQ(PlaceOf(WindowOf(tip)).bottom, 598);
    ASSERT_TRUE(AwaitShown(false));
    EXPECT_FALSE(AwaitShown(true, 300));
}

TEST_F(XToolTipTest, FormMayGoWhileItsTipShows) {
    auto doomed = std::make_unique<ButtonForm>();
    tip.Show({.AreaWindow = doomed->Hwnd, .FixedX = 500, .FixedY = 600, .Text = L"owned"});
    ASSERT_NE(WindowOf(tip), nullptr);
    doomed.reset();
    EXPECT_TRUE(AwaitShown(false));
    tip.Show({.FixedX = 500, .FixedY = 600, .Text = L"again", .Hold = 600});
    Await([] { return false; }, 450); // fading
    const ULONGLONG start = GetTickCount64();
    {
        XToolTip other;
        other.Show({.FixedX = 700, .FixedY = 600, .Text = L"other"});
    }
    EXPECT_LT(GetTickCount64() - start, 2000u);
}

TEST_F(XToolTipTest, ItemsAreClickedWhileTheFormWaitsForTheTip) {
    struct Asker {
        HWND form;
        LONG asked = 0;
    } asker{form.Hwnd};
    XDisplayList body;
    body.AddFill({.Right = anchorFar, .Bottom = anchorFar, .Colour = 0xFFFFFF});
    XArray<clTipItem> items;
    items.AddNew(clTipItem{.X = 4,
                           .Y = 4,
                           .Text = L"Click me",
                           .OnClick =
                               [](void* argument) {
                                   auto* asker = static_cast<Asker*>(argument);
                                   InterlockedIncrement(&asker->asked);
                                   SendMessageW(asker->form, WM_APP, 0, 0); // to the thread that waits
                               },
                           .Argument = &asker});
    tip.Set({.Base = {.FixedX = 500, .FixedY = 600}, .Body = &body, .Items = &items});
    const HWND window = WindowOf(tip);
    ASSERT_NE(window, nullptr);
    EXPECT_GT(ClientOf(window).right, 30);
    for (UINT message : {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP})
        PostMessageW(window, message, 0, MAKELPARAM(8, 8));
    const ULONGLONG start = GetTickCount64();
    while (!InterlockedCompareExchange(&asker.asked, 0, 0) && GetTickCount64() - start < 5000)
        SwitchToThread(); // without answering: the tips' thread now waits for this one
    tip.Show({.FixedX = 500, .FixedY = 600, .Text = L"next"});
    EXPECT_LT(GetTickCount64() - start, 3000u);
    EXPECT_EQ(asker.asked, 1);
    PostMessageW(WindowOf(tip), WM_LBUTTONUP, 0, MAKELPARAM(1, 1)); // no item: closes
    EXPECT_TRUE(AwaitShown(false));
}

TEST(XToolTip, LastTipEndsTheThreadAndLeavesNothing) {
    const auto run = [] {
        XToolTip tip;
        tip.Show({.FixedX = 500, .FixedY = 600, .Text = L"tip", .Icon = LoadIconW(nullptr, IDI_WARNING)});
        EXPECT_TRUE(XTipThread::IsRunning());
    };
    // Freed slots come back in turns, so that only the highest of several runs tells of a leak.
    const auto reach = [&run](int runs) {
        HandleReach highest;
        for (int i = 0; i < runs; ++i) {
            run();
            const HandleReach now;
            highest.gdi = std::max(highest.gdi, now.gdi);
            highest.user = std::max(highest.user, now.user);
            highest.kernel = std::max(highest.kernel, now.kernel);
        }
        return highest;
    };
    const HandleReach before = reach(5);
    const HandleReach after = reach(10);
    EXPECT_FALSE(XTipThread::IsRunning());
    ExpectNothingLeft(before, after, 10);
}
} // namespace
