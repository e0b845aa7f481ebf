// The group of drawn buttons: their windows, and what the mouse and the timer do to them.
#include "toolkit/XButtonGroup.h"

#include "toolkit/XToolTip.h"
#include "toolkit/XToolkitState.h"

#include <utility>

namespace {
constexpr UINT_PTR firstTimerId = 7787;
UINT_PTR timersMade = 0;
// Of the process: while one message of a group is handled, all others but drawing pass by. So a box
// that a click opens is not disturbed by the buttons below it.
bool busy = false;

class BusyScope {
public:
    BusyScope() noexcept : outer(std::exchange(busy, true)) {}
    ~BusyScope() { busy = outer; }
    BusyScope(const BusyScope&) = delete;
    BusyScope& operator=(const BusyScope&) = delete;

private:
    const bool outer;
};

POINT PointOf(LPARAM lParam) noexcept {
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

bool IsHeld(const XButton& button) noexcept {
    return button.LeftDown || button.RightDown || button.KeyDown;
}

bool LooksPressed(const XButton& button) noexcept {
    return button.State == buttonPressed || button.State == buttonOn;
}

// With standard flags a list button has every face that was filled.
std::uint32_t FlagsOf(const XButton& button, std::uint32_t wanted) noexcept {
    std::uint32_t flags = wanted ? wanted : std::uint32_t{buttonStandard};
    if (wanted || !button.UsesLists)
        return flags;
    if (button.DisabledFace.LayerCount)
        flags |= buttonDisabled;
    if (button.HeldOnFace.LayerCount)
        flags |= buttonHeldOn;
    return flags;
}
} // namespace

XButtonGroup::XButtonGroup() {
    Toolkit();
    Lock.Create();
}

XButtonGroup::~XButtonGroup() {
    Clear();
}

void XButtonGroup::Create(HWND parent) {
    Clear();
    Parent = parent;
    StartTimer();
}

void XButtonGroup::StartTimer() {
    if (!TimerId && Parent)
        TimerId = SetTimer(Parent, firstTimerId + timersMade++, tickMs, nullptr);
}

void XButtonGroup::AddButton(XButton& button, const clButtonDesc& description, int bitmapId, XWindow* owner) {
    if (button.Group)
        button.Group->RemoveButton(button);
    button.Group = this;
    button.Owner = owner;
    button.MenuId = description.MenuId;
    button.Menu = description.Menu;
    button.UsesLists = bitmapId == 0;
    button.Width = description.Width;
    button.Height = description.Height;
    button.Flags = description.Flags ? description.Flags : std::uint32_t{buttonStandard};
    if (bitmapId) {
        button.Face.LoadResource(bitmapId);
        if (button.Face.IsValid()) {
            button.Width = button.Face.Width() / ButtonFrames(button.Flags);
            button.Height = button.Face.Height() / (button.Flags & buttonMask ? 2 : 1);
        }
    } else if (button.NormalFace.LayerCount == 0) {
        BuildTextFaces(button, description.Caption, ScaleToDpi(standardFontHeight));
        button.OwnFaces = 1;
    }
    button.Flags = FlagsOf(button, description.Flags);
    {
        const XLocked lock(Lock);
        Buttons.Add(&button);
    }
    MakeWindow(button, description);
    StartTimer();
}

void XButtonGroup::MakeWindow(XButton& button, const clButtonDesc& description) {
    constexpr DWORD drawnStatic = 0x5000000D; // WS_CHILD | WS_VISIBLE | SS_OWNERDRAW
    static_assert(drawnStatic == (WS_CHILD | WS_VISIBLE | SS_OWNERDRAW));
    const DWORD style =
        drawnStatic | (button.TakesFocus() ? WS_TABSTOP : 0) | (description.Disabled ? WS_DISABLED : 0);
    button.Window = CreateWindowExW(
        0, L"STATIC", description.Caption, style, description.X, description.Y, button.Width, button.Height,
        Parent, reinterpret_cast<HMENU>(INT_PTR{description.Id}), GetModuleHandleW(nullptr), nullptr);
    if (!button.Window)
        return;
    button.Attach(button.Window);
    if (!description.Tip || !*description.Tip)
        return;
    button.Tip = std::make_unique<XToolTip>();
    button.Tip->Show({.Anchor = button.Window, .Text = description.Tip});
}

void XButtonGroup::RemoveButton(XButton& button) {
    const std::int64_t index = Find(&button);
    if (index < 0)
        return;
    {
        const XLocked lock(Lock);
        Buttons.RemoveAt(index);
    }
    if (button.LeftDown || button.RightDown)
        ReleaseCapture();
    button.Tip.reset();
    if (button.Window)
        DestroyWindow(button.Window);
    button.Group = nullptr;
    button.State = buttonNormal;
    button.LeftDown = button.RightDown = button.KeyDown = 0;
    button.Toggle = 0;
    button.Face.Free();
    button.Screen.Free();
    button.Back.Free();
    if (std::exchange(button.OwnFaces, std::uint8_t{0}))
        button.ClearFaces();
}

void XButtonGroup::Clear() {
    while (Buttons.count > 0)
        RemoveButton(*static_cast<XButton*>(Buttons.items[Buttons.count - 1]));
    if (TimerId)
        KillTimer(Parent, TimerId);
    TimerId = 0;
}

std::int64_t XButtonGroup::Find(const XButton* button) const noexcept {
    for (std::int64_t i = 0; i < Buttons.count; ++i)
        if (Buttons.items[i] == button)
            return i;
    return -1;
}

XButton* XButtonGroup::FindWindow(HWND window) const noexcept {
    for (std::int64_t i = 0; window && i < Buttons.count; ++i) {
        auto* button = static_cast<XButton*>(Buttons.items[i]);
        if (button->Window == window)
            return button;
    }
    return nullptr;
}

LRESULT XButtonGroup::OnParentMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                                      std::uint32_t& handled) {
    if (!Parent || hwnd != Parent)
        return 0;
    if (message == WM_DRAWITEM) {
        const auto* draw = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        XButton* button = draw->CtlType == ODT_STATIC ? FindWindow(draw->hwndItem) : nullptr;
        if (!button)
            return 0;
        handled = 1;
        button->Draw(draw->hDC, button->State, true);
        return TRUE;
    }
    if (busy)
        return 0;
    const BusyScope scope;
    handled = HandleInput(message, wParam, lParam);
    return 0;
}

// True if the form need not see the message.
bool XButtonGroup::HandleInput(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_MOUSEMOVE:
        ForgetClicks();
        UpdateHover(PointOf(lParam));
        return false;
    case WM_TIMER:
        if (!TimerId || wParam != TimerId)
            return false;
        OnTick();
        return true;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        return OnDown(PointOf(lParam), false);
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
        return OnDown(PointOf(lParam), true);
    case WM_LBUTTONUP:
        return OnUp(false);
    case WM_RBUTTONUP:
        return OnUp(true);
    case WM_CAPTURECHANGED: // taken away: there will be no release
        OnCaptureLost();
        return false;
    default:
        return false;
    }
}

// From now on a held button under the cursor shows the hover look.
void XButtonGroup::ForgetClicks() {
    for (std::int64_t i = 0; i < Buttons.count; ++i) {
        auto& button = *static_cast<XButton*>(Buttons.items[i]);
        if (std::exchange(button.LastCursor.x, INT_MIN) != INT_MIN && button.Toggle)
            button.Redraw();
    }
}

void XButtonGroup::UpdateHover() {
    POINT cursor{};
    if (!Parent || !GetCursorPos(&cursor))
        return;
    ScreenToClient(Parent, &cursor);
    UpdateHover(cursor);
}

// The cursor in client pixels; that of the message, where there is one: a busy form sees it late.
void XButtonGroup::UpdateHover(POINT cursor) {
    const XLocked lock(Lock);
    const HWND under = ChildWindowFromPointEx(Parent, cursor, CWP_SKIPINVISIBLE | CWP_SKIPDISABLED);
    const bool parentEnabled = IsWindowEnabled(Parent);
    for (std::int64_t i = 0; i < Buttons.count; ++i) {
        auto& button = *static_cast<XButton*>(Buttons.items[i]);
        const bool hovered =
            under && (under == button.Window || (button.Partner && under == button.Partner->Window));
        std::uint32_t state = buttonNormal;
        if (parentEnabled && button.IsEnabled()) {
            if (button.KeyDown || (hovered && IsHeld(button)))
                state = buttonPressed;
            else if (hovered)
                state = buttonHovered;
        }
        button.Draw(nullptr, state, false);
    }
}

void XButtonGroup::OnTick() {
    for (std::int64_t i = 0; i < Buttons.count; ++i) {
        auto& button = *static_cast<XButton*>(Buttons.items[i]);
        if (LooksPressed(button))
            button.OnRepeat(!IsHeld(button));
    }
    if (++Tick % 2 == 0)
        UpdateHover(); // the cursor can leave without a message
}

bool XButtonGroup::OnDown(POINT cursor, bool rightButton) {
    XButton* button = FindWindow(ChildWindowFromPointEx(Parent, cursor, CWP_SKIPINVISIBLE));
    if (!button || !button->IsEnabled())
        return false;
    auto& down = rightButton ? button->RightDown : button->LeftDown;
    down = 1;
    if (button->HasMenu()) {
        UpdateHover(cursor);
        button->Popup();
        down = 0;
        UpdateHover();
        return true;
    }
    button->Focus();
    SetCapture(Parent);
    UpdateHover(cursor);
    button->OnPress(rightButton);
    if (GetCapture() != Parent) // a menu or a box has taken it, and with it the release
        OnCaptureLost();
    return true;
}

bool XButtonGroup::OnUp(bool rightButton) {
    ReleaseCapture();
    bool any = false;
    for (std::int64_t i = 0; i < Buttons.count; ++i) {
        auto& button = *static_cast<XButton*>(Buttons.items[i]);
        auto& down = rightButton ? button.RightDown : button.LeftDown;
        if (!std::exchange(down, std::uint8_t{0}))
            continue;
        any = true;
        if (!LooksPressed(button)) {
            button.OnReleaseOutside(rightButton);
            continue;
        }
        if (!rightButton)
            GetCursorPos(&button.LastCursor);
        button.OnClick(rightButton); // may remove the button, or all
    }
    UpdateHover();
    return any;
}

void XButtonGroup::OnCaptureLost() {
    for (std::int64_t i = 0; i < Buttons.count; ++i) {
        auto& button = *static_cast<XButton*>(Buttons.items[i]);
        const bool left = std::exchange(button.LeftDown, std::uint8_t{0});
        const bool right = std::exchange(button.RightDown, std::uint8_t{0});
        if (left || right)
            button.OnReleaseOutside(!left);
    }
    UpdateHover();
}
