// Tool tips as the thread of forms sees them: what they are to show, and their end.
#include "toolkit/XToolTip.h"

#include "toolkit/XDisplayParts.h"
#include "toolkit/XTipThread.h"

namespace {
constexpr DWORD endMs = 5000;      // how long the end of a showing may take
constexpr DWORD visibleMs = 10000; // how long a fixed tip may take to show
constexpr DWORD pollMs = 50;
constexpr int itemSize = 14;
constexpr COLORREF linkColour = 0xFF0000;
constexpr int bodySize = 13;

XIcon CopyOf(const XIcon& icon) {
    return XIcon(icon.IsValid() ? CopyIcon(icon.Get()) : nullptr);
}

void BuildBody(XDisplayList& body, const clTipDesc& description) {
    constexpr std::uint32_t top = 0xFFFEFE;
    constexpr std::uint32_t bottom = 0xF0E5E4;
    constexpr std::uint32_t frame = 0x767676;
    constexpr std::int32_t middle = anchorHalf | anchorCentre;
    // Shown once in a while, and by another thread than the one that ends the list.
    body.AddGradient({.Right = anchorFar,
                      .Bottom = anchorFar,
                      .TopLeft = top,
                      .TopRight = top,
                      .BottomLeft = bottom,
                      .BottomRight = bottom,
                      .DropCache = 1});
    body.AddFrame({.Right = anchorFar, .Bottom = anchorFar, .Colour = frame});
    const XString text(description.Text);
    int textX = 5;
    if (description.Icon) {
        const bool severalLines = text.FindChar(L'\r') != 0;
        body.AddIcon({.Left = ScaleToDpi(4), .Top = severalLines ? 1 : middle}, description.Icon);
        textX = 8;
    }
    body.AddText({.Left = ScaleToDpi(textX) + (IconSize(description.Icon).cx),
                  .Top = middle,
                  .Text = text,
                  .Size = ScaleToDpi(bodySize)});
}
} // namespace

XToolTip::~XToolTip() {
    EndShowing(nullptr);
    XTipThread::StopIfIdle();
}

void XToolTip::Show(const clTipDesc& description) {
    XDisplayList body;
    BuildBody(body, description);
    Set({.Base = description, .Body = &body});
}

void XToolTip::Set(const clTipFullDesc& description) {
    EndShowing(&description);
    if (IsFixed() && !Anchor)
        AwaitVisible();
}

void XToolTip::Hide() {
    const XTipLock lock;
    CloseWanted = 1;
    Shown = 1;
}

void XToolTip::TakeOver(const clTipFullDesc& description) {
    const clTipDesc& base = description.Base;
    static_cast<clTipTiming&>(*this) = {
        .Delay = base.Delay, .Hold = base.Hold, .NoFade = static_cast<std::uint8_t>(base.NoFade)};
    CloseWanted = 0;
    Style = base.Style;
    Anchor = base.Anchor;
    AnchorParent = Anchor ? GetParent(Anchor) : nullptr;
    Area = base.Area;
    AreaWindow = base.AreaWindow;
    FixedX = base.FixedX;
    FixedY = base.FixedY;
    MinWidth = description.MinWidth;
    MinHeight = description.MinHeight;
    if (IsFixed())
        Delay = 1;
    Body.Clear();
    if (description.Body)
        Body.Copy(*description.Body);
    Items.Clear();
    if (!description.Items)
        return;
    for (const clTipItem& item : *description.Items)
        Items.AddNew(clTipItem{.X = item.X,
                               .Y = item.Y,
                               .Text = item.Text,
                               .OnClick = item.OnClick,
                               .Argument = item.Argument,
                               .Colour = item.Colour == 0xFFFFFFFF ? linkColour : item.Colour,
                               .FontName = item.FontName,
                               .Bold = item.Bold,
                               .Size = item.Size ? item.Size : ScaleToDpi(itemSize),
                               .Normal = CopyOf(item.Normal),
                               .Hover = CopyOf(item.Hover),
                               .Down = CopyOf(item.Down)});
}

void XToolTip::AwaitVisible() {
    const ULONGLONG end = GetTickCount64() + visibleMs;
    while (GetTickCount64() < end) {
        {
            const XTipLock lock;
            if (Shown || CloseWanted || !XTipThread::IsRunning()) // `Shown` is set when the window shows
                return;
        }
        XTipThread::Wait(pollMs);
    }
}

// Waits until the window has gone, which its own thread ends. In the same breath, so that no tick
// comes between, the tip takes over what is `next`, or leaves the list for good if that is null.
void XToolTip::EndShowing(const clTipFullDesc* next) {
    const ULONGLONG end = GetTickCount64() + endMs;
    for (;;) {
        const ULONGLONG now = GetTickCount64();
        const bool late = now >= end;
        {
            const XTipLock lock(late ? 0 : static_cast<DWORD>(end - now));
            if (!Hwnd || late || !lock.taken) {
                if (next) {
                    TakeOver(*next);
                    XTipThread::Add(*this);
                    return;
                }
                XTipThread::Remove(*this);
                break;
            }
            CloseWanted = 1;
        }
        XTipThread::Wait(pollMs);
    }
    if (!Hwnd)
        return;
    // Its thread hangs. Without this object the window ends itself as soon as it is asked.
    PostMessageW(Hwnd, WM_CLOSE, 0, 0);
    Hwnd = nullptr;
}
