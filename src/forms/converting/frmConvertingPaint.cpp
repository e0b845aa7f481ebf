// What the converting form draws itself: bars and the effects' icons; and the place of the heading.
#include "engine/WorkerText.h"
#include "forms/converting/Rows.h"
#include "forms/converting/frmConverting.h"
#include "resources/ids.h"

namespace {

constexpr int overallBarX = 7; // dialog units
constexpr int overallBarY = 35;
constexpr int headingX = 7;
constexpr int headingY = 7;
constexpr int headingHeight = 8;
constexpr int headingBandBottom = 20;
constexpr int iconX = 9;
constexpr int effectTextDistance = 36; // pixels from the left of the encoder's icon, as below
constexpr int effectIconDistance = 42;
constexpr int effectIconStep = 24;
constexpr int effectIconMargin = 50;
constexpr int effectIconEdge = 16;

} // namespace

RECT frmConverting::OverallBar() const {
    return overallBar.At(FromDialogUnits(overallBarX, overallBarY));
}

RECT frmConverting::RowBar(int slot) const {
    return rowBars.At(FromDialogUnits(rowBarX, rowControls[slot].y));
}

void frmConverting::InvalidateOverallBar() {
    const RECT bar = OverallBar();
    InvalidateRect(Hwnd, &bar, FALSE);
}

int frmConverting::TextWidth(const wchar_t* text) {
    const HDC dc = GetDC(Hwnd);
    const int width = textFont.Width(dc, text);
    textFont.Unselect();
    ReleaseDC(Hwnd, dc);
    return width;
}

void frmConverting::PlaceHeading() {
    const int width = TextWidth(shown.heading) + 2;
    constexpr UINT flags = SWP_NOZORDER | SWP_NOACTIVATE;
    SetWindowPos(Control(ID_HEADING), nullptr, 0, 0, width, FromDialogUnits(0, headingHeight).y,
                 flags | SWP_NOMOVE);
    InvalidateRect(Control(ID_HEADING), nullptr, TRUE); // its text was drawn at the earlier width
    const POINT icon = FromDialogUnits(iconX, headingY);
    SetWindowPos(Control(ID_ENCODER_ICON), nullptr, icon.x + 1 + width, icon.y, 0, 0, flags | SWP_NOSIZE);
    RECT client{};
    GetClientRect(Hwnd, &client);
    const POINT from = FromDialogUnits(headingX, headingY);
    const RECT band = {from.x, from.y, client.right, FromDialogUnits(0, headingBandBottom).y};
    InvalidateRect(Hwnd, &band, TRUE);
}

void frmConverting::Paint() {
    PAINTSTRUCT paint{};
    const HDC dc = BeginPaint(Hwnd, &paint);
    PaintEffects(dc);
    const RECT bar = OverallBar();
    if (RectVisible(dc, &bar))
        overallBar.Draw(dc, bar, static_cast<int>(conversion.overallPercent));
    const std::int64_t rows = conversion.AreRowsShown() ? conversion.scheduler.slots.Count() : 0;
    for (int i = 0; i < rows; ++i) {
        const RECT row = RowBar(i);
        if (RectVisible(dc, &row))
            rowBars.Draw(dc, row, PercentToShow(conversion.scheduler.slots[i]));
    }
    EndPaint(Hwnd, &paint);
}

void frmConverting::PaintEffects(HDC dc) {
    if (effectIcons.IsEmpty())
        return;
    RECT icon{};
    RECT client{};
    GetWindowRect(Control(ID_ENCODER_ICON), &icon);
    MapWindowPoints(nullptr, Hwnd, reinterpret_cast<POINT*>(&icon), 2);
    GetClientRect(Hwnd, &client);

    const XString text = effectIcons.Count() == 1 ? L"DSP: " : L"DSPs: ";
    textFont.Select(dc);
    textFont.TextOut(icon.left + effectTextDistance, icon.top + 2, text);
    textFont.Unselect();
    int x = icon.left + effectIconDistance + TextWidth(text);
    for (const XIcon& effect : effectIcons) {
        if (x > client.right - effectIconMargin)
            return;
        DrawIconEx(dc, x, icon.top, effect.Get(), effectIconEdge, effectIconEdge, 0, nullptr, DI_NORMAL);
        x += effectIconStep;
    }
}
