// A framed bar with a vertical run of colours, made in memory and copied in one step.
#include "forms/converting/ProgressBar.h"

#include "foundation/XHandles.h"

#include <algorithm>

namespace {

struct BarColours {
    COLORREF frame, top, bottom;
};
constexpr BarColours emptyBar = {RGB(168, 178, 190), RGB(226, 231, 237), RGB(244, 246, 249)};
constexpr BarColours fullBar = {RGB(43, 96, 158), RGB(124, 174, 227), RGB(58, 118, 189)};

BYTE Between(BYTE from, BYTE to, int step, int steps) {
    return static_cast<BYTE>(from + (to - from) * step / std::max(steps, 1));
}

void DrawBox(HDC dc, int width, int height, const BarColours& colours) {
    const XSelected brush(dc, GetStockObject(DC_BRUSH));
    SetDCBrushColor(dc, colours.frame);
    PatBlt(dc, 0, 0, width, height, PATCOPY);
    for (int y = 1; y < height - 1; ++y) {
        const COLORREF from = colours.top;
        const COLORREF to = colours.bottom;
        SetDCBrushColor(dc, RGB(Between(GetRValue(from), GetRValue(to), y, height),
                                Between(GetGValue(from), GetGValue(to), y, height),
                                Between(GetBValue(from), GetBValue(to), y, height)));
        PatBlt(dc, 1, y, width - 2, 1, PATCOPY);
    }
}

} // namespace

void DrawProgressBar(HDC dc, const RECT& place, int percent) {
    if (!RectVisible(dc, &place))
        return; // one bar changes at a time, the others need no work
    const int width = place.right - place.left;
    const int height = place.bottom - place.top;
    const XMemoryDc memory(CreateCompatibleDC(dc));
    const XGdiObject bitmap(CreateCompatibleBitmap(dc, width, height));
    if (!memory.IsValid() || !bitmap.IsValid())
        return;
    const XSelected selected(memory.Get(), bitmap.Get());
    DrawBox(memory.Get(), width, height, emptyBar);
    const int full = width * std::clamp(percent, 0, 100) / 100;
    if (full > 0) {
        IntersectClipRect(memory.Get(), 0, 0, full, height);
        DrawBox(memory.Get(), width, height, fullBar);
        SelectClipRgn(memory.Get(), nullptr);
    }
    BitBlt(dc, place.left, place.top, width, height, memory.Get(), 0, 0, SRCCOPY);
}
