// Drawn buttons on a real form: mouse, keys, menus, looks and their end.
#include "ButtonForm.h"
#include "tests/support/HandleReach.h"
#include "toolkit/XToolTip.h"

#include <gtest/gtest.h>

#include <memory>

namespace {
class XButtonTest : public testing::Test {
protected:
    XButtonTest() {
        XButton::ShowFocus = 0;
        form.Add(first, 10, L"&First");
        form.Add(second, 100, L"Second && &third");
        KillTimer(form.Hwnd, form.Buttons.TimerId); // the tests tick
        form.MoveTo(5);
    }
    ButtonForm form;
    NotingButton first{form.log}, second{form.log};
};

TEST_F(XButtonTest, ReleaseDecidesWhatAPressWas) {
    struct Row {
        const char* what;
        UINT down, up;
        int upAt;
        const char* log;
    };
    constexpr Row rows[] = {
        {"left inside", WM_LBUTTONDOWN, WM_LBUTTONUP, 30, "press click "},
        {"left outside", WM_LBUTTONDOWN, WM_LBUTTONUP, 300, "press outside "},
        {"left on the neighbour", WM_LBUTTONDOWN, WM_LBUTTONUP, 110, "press outside "},
        {"second of a double click", WM_LBUTTONDBLCLK, WM_LBUTTONUP, 30, "press click "},
        {"right inside", WM_RBUTTONDOWN, WM_RBUTTONUP, 30, "rpress rclick "},
        {"right outside", WM_RBUTTONDOWN, WM_RBUTTONUP, 300, "rpress routside "},
        {"another button's release", WM_LBUTTONDOWN, WM_RBUTTONUP, 30, "press "},
    };
    for (const Row& row : rows) {
        form.MoveTo(20);
        EXPECT_EQ(first.State, std::uint32_t{buttonHovered}) << row.what;
        form.Send(row.down, 20);
        EXPECT_EQ(first.State, std::uint32_t{buttonPressed}) << row.what;
        EXPECT_EQ(GetCapture(), form.Hwnd) << row.what;
        form.MoveTo(row.upAt);
        EXPECT_EQ(first.State == buttonPressed, row.upAt == 30) << row.what;
        form.Send(row.up, row.upAt);
        EXPECT_EQ(GetCapture(), nullptr) << row.what;
        EXPECT_EQ(form.Take(), row.log) << row.what;
        form.Send(WM_LBUTTONUP, row.upAt);
        form.Take();
    }
}

TEST_F(XButtonTest, TicksRepeatAPressAndSeeTheCursorLeave) {
    form.MoveTo(20);
    form.Send(WM_LBUTTONDOWN, 20);
    form.Tick();
    EXPECT_EQ(form.Take(), "press repeat ");
    SetCapture(nullptr); // as when another window takes it: no release will come
    EXPECT_EQ(form.Take(), "outside ");
    EXPECT_EQ(first.State, std::uint32_t{buttonHovered});
    first.onPress = [] { SetCapture(nullptr); }; // by a menu of its own
    form.Send(WM_LBUTTONDOWN, 20);
    EXPECT_EQ(form.Take(), "press outside ");
    first.Draw(nullptr, buttonOn, false);
    form.Tick();
    EXPECT_EQ(form.Take(), "still ");
    POINT away{250, 60};
    ClientToScreen(form.Hwnd, &away);
    SetCursorPos(away.x, away.y);
    form.Tick();
    form.Tick();
    EXPECT_EQ(first.State, std::uint32_t{buttonNormal});
}

TEST_F(XButtonTest, DisabledButtonsAndFormsTakeNothing) {
    first.Enable(false);
    form.Click(20);
    SendMessageW(first.Window, BM_CLICK, 0, 0);
    SendMessageW(first.Window, WM_KEYDOWN, VK_SPACE, 0);
    SendMessageW(first.Window, WM_KEYUP, VK_SPACE, 0);
    EXPECT_EQ(form.Take(), "");
    EXPECT_EQ(first.State, std::uint32_t{buttonNormal});
    EnableWindow(form.Hwnd, FALSE);
    form.MoveTo(110);
    EXPECT_EQ(second.State, std::uint32_t{buttonNormal});
    EnableWindow(form.Hwnd, TRUE);
}

TEST_F(XButtonTest, KeysReachAndPressEnabledButtons) {
    NotingButton plain(form.log), last(form.log);
    form.Add(plain, 190, L"Plain", buttonHover); // takes no focus
    form.Add(last, 270, L"&Last");
    second.Enable(false);
    SetFocus(first.Window);
    form.Press(VK_SPACE);
    form.Press(VK_RETURN);
    EXPECT_EQ(form.Take(), "press click press click "); // and not the dialog's default button
    EXPECT_EQ(XButton::ShowFocus, 0);
    form.Press(VK_TAB);
    EXPECT_EQ(GetFocus(), last.Window);
    EXPECT_EQ(XButton::ShowFocus, 1);
    form.Key(WM_KEYDOWN, VK_SPACE);
    form.Key(WM_KEYDOWN, VK_SPACE); // repeated by the keyboard
    EXPECT_EQ(last.State, std::uint32_t{buttonPressed});
    form.Tick();
    form.Tick();
    EXPECT_EQ(last.State, std::uint32_t{buttonPressed}); // wherever the cursor is
    SetFocus(first.Window);
    form.Key(WM_KEYUP, VK_SPACE);
    EXPECT_EQ(form.Take(), "press repeat repeat ");
    EXPECT_EQ(last.State, std::uint32_t{buttonNormal});
    constexpr LPARAM altDown = 1 << 29;
    form.Key(WM_SYSCHAR, L'l', altDown);
    EXPECT_EQ(form.Take(), "click ");
    EXPECT_EQ(GetFocus(), last.Window);
    form.Key(WM_SYSCHAR, L't', altDown); // that of the disabled button
    form.Press(VK_ESCAPE);
    EXPECT_EQ(form.Take(), "cancel ");
    last.Enable(false); // the focus goes on
    EXPECT_EQ(GetFocus(), first.Window);
    wchar_t text[40] = L"";
    GetWindowTextW(second.Window, text, 40);
    EXPECT_EQ(XString(text), XString(L"Second && &third"));
}

TEST_F(XButtonTest, MenuOpensOnThePressAndEndsIt) {
    const XMenu bar(CreateMenu());
    const HMENU popup = CreatePopupMenu();
    AppendMenuW(popup, MF_STRING, 77, L"Entry");
    AppendMenuW(bar.Get(), MF_POPUP, reinterpret_cast<UINT_PTR>(popup), L"");
    first.Menu = bar.Get();
    form.MoveTo(20);
    form.Send(WM_LBUTTONDOWN, 20);
    EXPECT_EQ(form.Take(), "menu ");
    EXPECT_EQ(first.LeftDown, 0);
    SetFocus(first.Window);
    form.Key(WM_KEYDOWN, VK_RETURN);
    form.Key(WM_KEYUP, VK_RETURN);
    SendMessageW(first.Window, BM_CLICK, 0, 0);
    EXPECT_EQ(form.Take(), "menu menu ");
    EXPECT_EQ(first.KeyDown, 0);
    first.Menu = nullptr;
    first.MenuId = 32123; // loads nothing: no popup, and no click either
    form.Click(20);
    EXPECT_EQ(form.Take(), "");
}

TEST_F(XButtonTest, ClickMayRemoveAllButtonsAndMayNotBeDisturbed) {
    first.onClick = [this] {
        form.Send(WM_LBUTTONDOWN, 110); // while a box would be open
        form.Buttons.Clear();
    };
    form.Click(20);
    EXPECT_EQ(form.Take(), "press click ");
    EXPECT_EQ(first.Window, nullptr);
    EXPECT_EQ(FindWindowExW(form.Hwnd, nullptr, L"Static", nullptr), nullptr);
    form.Add(first, 10, L"&Again");
    SetFocus(first.Window);
    form.Press(VK_SPACE);
    EXPECT_EQ(form.Take(), "press click ");
    EXPECT_EQ(first.Window, nullptr);
}

// Faces of one colour each tell which of them was drawn.
constexpr std::uint32_t faceColours[] = {0x000010, 0x000020, 0x000030, 0x000040, 0x000050, 0x000060};

TEST_F(XButtonTest, ListFacesFollowTheState) {
    form.Buttons.RemoveButton(first);
    XDisplayList* const lists[] = {&first.NormalFace,   &first.PressedFace, &first.HoverFace,
                                   &first.DisabledFace, &first.HeldOnFace,  &first.FocusFace};
    for (int i = 0; i < 6; ++i) // the focus overlay covers the left edge alone
        lists[i]->AddFill({.Right = i == 5 ? 1 : anchorFar, .Bottom = anchorFar, .Colour = faceColours[i]});
    form.Add(first, 10, L"");
    SetFocus(first.Window);
    for (const auto& [state, colour] : {std::pair(0u, 0x10u), {1u, 0x20u}, {2u, 0x30u}, {3u, 0x50u}}) {
        first.Draw(nullptr, state, true);
        EXPECT_EQ(GetPixel(first.Screen.Dc, 74, 22), colour) << state;
    }
    EnableWindow(first.Window, FALSE);
    first.Draw(nullptr, 0, true);
    EXPECT_EQ(GetPixel(first.Screen.Dc, 74, 22), 0x40u);
    first.Enable(true);
    SetFocus(first.Window);
    for (std::uint8_t shows : {0, 1}) {
        XButton::ShowFocus = shows;
        first.SetToggle(false);
        EXPECT_EQ(GetPixel(first.Screen.Dc, 0, 22), shows ? 0x60u : 0x10u);
    }
    first.onClick = [this] { first.SetToggle(true); };
    form.Click(20);
    EXPECT_EQ(GetPixel(first.Screen.Dc, 74, 22), 0x20u); // no hover look before the cursor moves
    form.MoveTo(25);
    EXPECT_EQ(GetPixel(first.Screen.Dc, 74, 22), 0x50u);
    first.SetToggle(false);
    first.Place(10, 10, 90, 40); // the faces follow
    first.Draw(nullptr, 0, true);
    EXPECT_EQ(GetPixel(first.Screen.Dc, 89, 39), 0x10u);
}

TEST_F(XButtonTest, BitmapFramesFollowTheFlags) {
    constexpr std::uint32_t flags =
        buttonMask | buttonHover | buttonDisabled; // normal, pressed, hover, disabled
    form.Buttons.AddButton(first, {.X = 10, .Y = 10, .Width = 8, .Height = 8, .Flags = flags}, 32123,
                           nullptr);
    first.Draw(nullptr, 0, true); // no bitmap: nothing
    EXPECT_EQ(first.Screen.Dc, nullptr);
    first.Face.Create(nullptr, 4 * 8, 2 * 8);
    for (int i = 0; i < 4; ++i) { // each mask lets the background of its left half through
        const RECT frame{i * 8 + 4, 0, i * 8 + 8, 8}, open{i * 8, 8, i * 8 + 4, 16};
        const XGdiObject colour(CreateSolidBrush(faceColours[i]));
        FillRect(first.Face.Dc, &frame, static_cast<HBRUSH>(colour.Get()));
        FillRect(first.Face.Dc, &open, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    }
    for (const auto& [state, colour] : {std::pair(0u, 0x10u), {1u, 0x20u}, {2u, 0x30u}}) {
        first.Draw(nullptr, state, true);
        EXPECT_EQ(GetPixel(first.Screen.Dc, 6, 4), colour) << state;
        EXPECT_EQ(GetPixel(first.Screen.Dc, 2, 4), GetSysColor(COLOR_3DFACE)) << state;
    }
}

TEST_F(XButtonTest, FormsWithButtonsAndTipsLeakNothing) {
    ExpectNothingLeftBy(50, [] {
        ButtonForm other;
        std::string log;
        NotingButton button(log);
        other.Buttons.AddButton(button, {.Width = 60, .Height = 20, .Caption = L"&X", .Tip = L"tip"}, 0,
                                &other);
        button.Draw(nullptr, buttonPressed, true);
    });
}
} // namespace
