// The window of a tool tip, on the thread of the tips and with TooltipLock held.
#include "toolkit/XBitmap.h"
#include "toolkit/XDisplayParts.h"
#include "toolkit/XFont.h"
#include "toolkit/XScreenDc.h"
#include "toolkit/XToolTip.h"
#include "toolkit/XToolkitState.h"

#include <algorithm>
#include <utility>

namespace {
constexpr int raisedStyle = 1;

HICON IconOf(const clTipItem& item) {
    const XIcon* const states[] = {&item.Normal, &item.Hover, &item.Down};
    const HICON icon = states[std::clamp(item.ShownState, 0, 2)]->Get();
    return icon ? icon : item.Normal.Get();
}

void CreateFontOf(XFont& font, HDC dc, const clTipItem& item) {
    font.Create(dc, item.FontName, item.Size, item.Colour, item.Bold, false, true);
}

// In client pixels of the tip.
RECT RectangleOf(const clTipItem& item, HDC dc) {
    SIZE size{};
    if (item.Text.IsEmpty()) {
        size = IconSize(item.Normal.Get());
    } else {
        XFont font;
        CreateFontOf(font, dc, item);
        size = {font.Width(nullptr, item.Text) + 1, font.Height(item.Text)};
    }
    return {item.X, item.Y, item.X + size.cx, item.Y + size.cy};
}

void PaintItem(const clTipItem& item, HDC dc) {
    if (item.Text.IsEmpty()) {
        if (const HICON icon = IconOf(item))
            DrawIconEx(dc, item.X, item.Y, icon, 0, 0, 0, nullptr, DI_NORMAL);
        return;
    }
    XFont font;
    CreateFontOf(font, dc, item);
    font.TextOut(item.X, item.Y, item.Text);
}
} // namespace

void XToolTip::TickAt(POINT cursor, std::uint32_t now) {
    const bool visible = Hwnd && IsWindowVisible(Hwnd);
    if (std::exchange(CloseWanted, std::uint8_t{0})) {
        if (Hwnd) // hidden, too, as the tip of a minimised form is
            Destroy();
        return;
    }
    switch (StepTip(*this, IsWanted(cursor), visible, now)) {
    case clTipStep::Show:
        ShowAt(cursor);
        break;
    case clTipStep::Hide:
        Destroy();
        break;
    case clTipStep::Fade:
        SetLayeredWindowAttributes(Hwnd, 0, static_cast<BYTE>(LastAlpha), LWA_ALPHA);
        break;
    case clTipStep::None:
        break;
    }
}

bool XToolTip::IsWanted(POINT cursor) const {
    const HWND owner = Anchor ? Anchor : AreaWindow;
    if (owner && !IsWindow(owner)) // ended before its tip
        return false;
    if (Anchor) {
        const HWND under = WindowFromPoint(cursor);
        if (under == Anchor)
            return true;
        // Static controls are transparent to the mouse: the system may answer with their parent.
        if (!under || under != AnchorParent)
            return false;
        ScreenToClient(AnchorParent, &cursor);
        return ChildWindowFromPointEx(AnchorParent, cursor, CWP_SKIPINVISIBLE | CWP_SKIPDISABLED) == Anchor;
    }
    if (IsFixed())
        return true;
    const RECT area = TargetRectangle();
    return PtInRect(&area, cursor);
}

RECT XToolTip::TargetRectangle() const {
    RECT r = Area;
    if (Anchor)
        GetWindowRect(Anchor, &r);
    else if (AreaWindow)
        MapWindowPoints(AreaWindow, nullptr, reinterpret_cast<POINT*>(&r), 2);
    return r;
}

SIZE XToolTip::MeasureTip() {
    const bool raised = Style == raisedStyle;
    Body.PadRight = ScaleToDpi(raised ? 8 : 2);
    Body.PadBottom = ScaleToDpi(raised ? 10 : 4);
    const XScreenDc screen;
    for (const clTipItem& item : Items) {
        const RECT r = RectangleOf(item, screen);
        MinWidth = std::max(MinWidth, static_cast<int>(r.right) + Body.PadRight);
        MinHeight = std::max(MinHeight, static_cast<int>(r.bottom) + Body.PadBottom);
    }
    Body.MinWidth = MinWidth;
    Body.MinHeight = MinHeight;
    SIZE size{};
    Body.Measure(size);
    return size;
}

void XToolTip::ShowAt(POINT cursor) {
    // Disabled, the tip lets the mouse through to what lies below; items are there to be clicked.
    const DWORD style =
        WS_POPUP | (Style == raisedStyle ? WS_DLGFRAME : 0) | (Items.IsEmpty() ? WS_DISABLED : 0);
    const DWORD extended = WS_EX_TOPMOST | WS_EX_TOOLWINDOW | (NoFade ? 0 : WS_EX_LAYERED);
    const SIZE size = MeasureTip();
    const RECT target = TargetRectangle();
    const clTipPoint at = PlaceTip(
        {.Fixed = IsFixed(),
         .FixedX = FixedX,
         .FixedY = FixedY,
         .Top = target.top,
         .Bottom = target.bottom,
         .Cursor = {cursor.x, cursor.y},
         .Width = size.cx,
         .Height = size.cy,
         .DesktopRight = GetSystemMetrics(SM_XVIRTUALSCREEN) + GetSystemMetrics(SM_CXVIRTUALSCREEN)});
    Create(L"", {at.X, at.Y, at.X + size.cx, at.Y + size.cy}, style, extended, Anchor ? Anchor : AreaWindow,
           CS_DROPSHADOW | CS_OWNDC | CS_DBLCLKS);
    Shown = 1;
    LastAlpha = -1;
    if (!Hwnd)
        return;
    SetClassLongPtrW(Hwnd, GCLP_HCURSOR, reinterpret_cast<LONG_PTR>(LoadCursorW(nullptr, IDC_ARROW)));
    if (!NoFade) // a layered window shows nothing before
        SetLayeredWindowAttributes(Hwnd, 0, 255, LWA_ALPHA);
    ShowWindow(Hwnd, SW_SHOWNA);
    UpdateWindow(Hwnd);
}

LRESULT XToolTip::PreMessage(HWND, UINT message, WPARAM, LPARAM, std::uint32_t& handled) {
    switch (message) {
    case WM_MOUSEACTIVATE: // a click on the tip leaves the form active
        handled = 1;
        return MA_NOACTIVATE;
    case WM_NCDESTROY: // perhaps with its owner, and not by this object
        Hwnd = nullptr;
        break;
    default:
        break;
    }
    return 0;
}

void XToolTip::OnPaint() {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(Hwnd, &paint);
    if (!dc)
        return;
    RECT client{};
    GetClientRect(Hwnd, &client);
    XBitmap screen;
    screen.Create(dc, client.right, client.bottom);
    if (screen.Dc) {
        Body.FitTo(client.right, client.bottom);
        Body.Paint(screen.Dc, 0, 0);
        for (const clTipItem& item : Items)
            PaintItem(item, screen.Dc);
        screen.Blit(dc, 0, 0);
    }
    EndPaint(Hwnd, &paint);
}

clTipItem* XToolTip::ItemAt(int x, int y) {
    const XScreenDc screen;
    for (clTipItem& item : Items) {
        const RECT r = RectangleOf(item, screen);
        if (PtInRect(&r, {x, y}))
            return &item;
    }
    return nullptr;
}

void XToolTip::ShowItemStates(int x, int y) {
    const clTipItem* under = ItemAt(x, y);
    bool changed = false;
    for (clTipItem& item : Items) {
        const int state = &item != under ? 0 : item.Pressed ? 2 : 1;
        changed |= std::exchange(item.ShownState, state) != state;
    }
    if (changed)
        InvalidateRect(Hwnd, nullptr, FALSE);
}

void XToolTip::OnMouseMove(int x, int y, WPARAM) {
    ShowItemStates(x, y);
}

void XToolTip::OnMouseDown(int x, int y, UINT message, WPARAM) {
    clTipItem* item = ItemAt(x, y);
    if (item && message == WM_LBUTTONDOWN)
        item->Pressed = true;
    ShowItemStates(x, y);
}

void XToolTip::OnMouseUp(int x, int y, UINT message, WPARAM) {
    if (message != WM_LBUTTONUP)
        return;
    for (clTipItem& item : Items)
        item.Pressed = false;
    ShowItemStates(x, y);
    const clTipItem* item = ItemAt(x, y);
    if (!item || !item->OnClick) {
        Dismiss();
        return;
    }
    const auto onClick = item->OnClick;
    void* const argument = item->Argument;
    XMutex& lock = Toolkit().TooltipLock;
    lock.Unlock(); // the thread of forms may need it to answer
    onClick(argument);
    lock.Lock();
}

void XToolTip::Dismiss() {
    CloseWanted = 1;
    Shown = 1;
}
