// Tool tips: small windows of one shared thread that show when the cursor rests on a control or in
// an area, or at once at a fixed place, and fade away.
#pragma once

#include "foundation/XArray.h"
#include "toolkit/XDisplayList.h"
#include "toolkit/XTipGeometry.h"
#include "toolkit/XWindow.h"

// A picture, or an underlined text, that can be clicked. An empty text makes it a picture.
struct clTipItem {
    int X = 0, Y = 0; // pixels of the tip's client area
    XString Text = XString();
    // Runs on the thread of the tips, without their lock. What ends or changes the tip is to be posted
    // to the form: the tip waits for its thread.
    void (*OnClick)(void* argument) = nullptr;
    void* Argument = nullptr;
    COLORREF Colour = 0xFFFFFFFF; // this value becomes blue
    XString FontName = XString();
    bool Bold = false;
    int Size = 0; // height of the font in pixels, 0 means 14
    XIcon Normal = XIcon(), Hover = XIcon(), Down = XIcon();
    int ShownState = 0; // 0 normal, 1 under the cursor, 2 down
    bool Pressed = false;
};

// The quick form of a tip. It belongs to `Anchor`, or to `Area` of `AreaWindow`, or, with FixedX or
// FixedY other than 0, shows at once with its lower left corner there. Everything is copied.
struct clTipDesc {
    int Style = 0; // 1: a raised border
    RECT Area{};   // client pixels of AreaWindow
    HWND AreaWindow = nullptr;
    HWND Anchor = nullptr;
    int FixedX = 0, FixedY = 0; // screen pixels
    const wchar_t* Text = L"";  // lines end at CR
    std::uint32_t Delay = 0;    // milliseconds, 0 means 1000
    std::uint32_t Hold = 0;     // milliseconds, 0 means 10000, clTipTiming::forever without end
    HICON Icon = nullptr;       // borrowed
    bool NoFade = false;
};

// The full form: a body drawn by the client, and items on it.
struct clTipFullDesc {
    clTipDesc Base;                           // without Text and Icon
    const XDisplayList* Body = nullptr;       // copied
    const XArray<clTipItem>* Items = nullptr; // copied with their icons
    int MinWidth = 0, MinHeight = 0;          // pixels
};

// A member of a form; Show, Set, Hide and the destructor belong to the thread of forms, all else to
// the thread of the tips. The tip of a control that dies is to be hidden or ended before it.
class XToolTip final : public XWindow, public clTipTiming {
public:
    XToolTip() = default;
    ~XToolTip() override; // waits up to 5 seconds for the window to go

    // Both end what the tip shows now. A fixed tip without anchor is visible on return.
    void Show(const clTipDesc& description);
    void Set(const clTipFullDesc& description);
    // Until the next Show, or until the cursor comes anew. Returns at once.
    void Hide();

    void OnMouseDown(int x, int y, UINT message, WPARAM keys) override;
    void OnMouseUp(int x, int y, UINT message, WPARAM keys) override;
    void OnMouseMove(int x, int y, WPARAM keys) override;
    void OnPaint() override;
    LRESULT PreMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                       std::uint32_t& handled) override;

    int Style = 0;
    XDisplayList Body;
    XArray<clTipItem> Items;
    HWND Anchor = nullptr;
    HWND AnchorParent = nullptr;
    RECT Area{};
    HWND AreaWindow = nullptr;
    int FixedX = 0, FixedY = 0;
    int MinWidth = 0, MinHeight = 0;
    std::uint8_t CloseWanted = 0;

private:
    friend class XTipThread;

    // On the thread of the tips, with TooltipLock held.
    void TickAt(POINT cursor, std::uint32_t now);
    void ShowAt(POINT cursor);
    [[nodiscard]] bool IsFixed() const noexcept { return FixedX != 0 || FixedY != 0; }
    [[nodiscard]] bool IsWanted(POINT cursor) const;
    [[nodiscard]] RECT TargetRectangle() const; // screen pixels
    [[nodiscard]] SIZE MeasureTip();
    [[nodiscard]] clTipItem* ItemAt(int x, int y);
    void ShowItemStates(int x, int y);
    void Dismiss();
    // On the thread of forms.
    void EndShowing(const clTipFullDesc* next);
    void TakeOver(const clTipFullDesc& description);
    void AwaitVisible();
};
