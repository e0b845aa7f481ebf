// Gradients of columns with one colour each, and of rows that run from one colour to another.
#include "toolkit/XGradient.h"

#include "foundation/XHandles.h"

#include <algorithm>

namespace {
void Line(HDC dc, COLORREF colour, int x, int y, int toX, int toY) {
    SetDCPenColor(dc, colour);
    MoveToEx(dc, x, y, nullptr);
    LineTo(dc, toX, toY);
}

TRIVERTEX Vertex(int x, int y, COLORREF colour) {
    const auto wide = [](BYTE channel) { return static_cast<COLOR16>(channel << 8); };
    return {x, y, wide(GetRValue(colour)), wide(GetGValue(colour)), wide(GetBValue(colour)), 0};
}
} // namespace

void PaintGradient(HDC dc, const RECT& edges, const XCornerColours& colours) {
    const XSelected pen(dc, GetStockObject(DC_PEN));
    const COLORREF oldColour = GetDCPenColor(dc);
    if (colours.IsHorizontal()) {
        const int span = std::max<int>(edges.right - edges.left, 1);
        for (int x = edges.left; x <= edges.right; ++x)
            Line(dc, ColourBetween(colours.TopLeft, colours.TopRight, x - edges.left, span), x, edges.top, x,
                 edges.bottom + 1);
    } else {
        const int span = std::max<int>(edges.bottom - edges.top, 1);
        for (int y = edges.top; y <= edges.bottom; ++y) {
            const int step = y - edges.top;
            const COLORREF left = ColourBetween(colours.TopLeft, colours.BottomLeft, step, span);
            const COLORREF right = ColourBetween(colours.TopRight, colours.BottomRight, step, span);
            if (left == right) {
                Line(dc, left, edges.left, y, edges.right + 1, y);
                continue;
            }
            TRIVERTEX ends[] = {Vertex(edges.left, y, left), Vertex(edges.right + 1, y + 1, right)};
            GRADIENT_RECT row{0, 1};
            GradientFill(dc, ends, 2, &row, 1, GRADIENT_FILL_RECT_H);
        }
    }
    SetDCPenColor(dc, oldColour);
}
