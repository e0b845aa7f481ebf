// Painting of display lists: layer by layer, and in a layer kind by kind.
#include "toolkit/XDisplayList.h"

#include "toolkit/XDisplayParts.h"
#include "toolkit/XGradient.h"

#include <algorithm>

namespace {
class Painter {
public:
    Painter(XDisplayList& list, HDC dc, int x, int y)
        : list(list), dc(dc), box{list.Width, list.Height, x, y} {}

    void Run() {
        for (layer = 0; layer < list.LayerCount; layer = next)
            PaintLayer();
    }

private:
    void PaintLayer() {
        next = list.LayerCount;
        Each(list.Fills, [this](clDLFill& record) { Paint(record); });
        Each(list.Boxes, [this](clDLBox& record) { Paint(record); });
        Each(list.Gradients, [this](clDLGradient& record) { Paint(record); });
        Each(list.Frames, [this](clDLFrame& record) { Paint(record); });
        Each(list.Lines, [this](clDLLine& record) { Paint(record); });
        Each(list.Images, [this](clDLImage& record) { Paint(record); });
        Each(list.Icons, [this](clDLIcon& record) { Paint(record); });
        Each(list.Texts, [this](clDLText& record) { Paint(record); });
        fonts.Unselect(); // the next layer's other kinds get the context as it was
    }

    // Also finds the next layer that is in use.
    template <class Record, class Draw>
    void Each(const XArray<Record>& records, Draw draw) {
        for (Record& record : records) {
            if (record.Layer > layer)
                next = std::min(next, record.Layer);
            else if (record.Layer == layer && PassesMask(record.Mask, list.ActiveMask))
                draw(record);
        }
    }

    template <class Record>
    [[nodiscard]] RECT EdgesOf(const Record& record) const {
        const XEdges edges = ResolveEdges(record, box);
        return {edges.Left, edges.Top, edges.Right, edges.Bottom};
    }

    void Paint(const clDLFill& record) {
        const XGdiObject brush(CreateSolidBrush(record.Colour));
        const RECT edges = EdgesOf(record);
        if (brush.IsValid())
            FillRect(dc, &edges, static_cast<HBRUSH>(brush.Get()));
    }

    void Paint(const clDLBox& record) {
        const XGdiObject brush(CreateSolidBrush(record.FillColour));
        const XGdiObject pen(CreatePen(PS_SOLID, 0, record.PenColour));
        const XSelected selectedBrush(dc, brush.Get());
        const XSelected selectedPen(dc, pen.Get());
        const RECT edges = EdgesOf(record);
        if (record.Radius == 0)
            Rectangle(dc, edges.left, edges.top, edges.right, edges.bottom);
        else
            RoundRect(dc, edges.left, edges.top, edges.right, edges.bottom, record.Radius, record.Radius);
    }

    void Paint(clDLGradient& record) {
        const RECT edges = EdgesOf(record);
        const std::int32_t width = WrapSubtract(edges.right, edges.left);
        const std::int32_t height = WrapSubtract(edges.bottom, edges.top);
        if (record.CacheWidth != width || record.CacheHeight != height) {
            record.CacheWidth = width;
            record.CacheHeight = height;
            record.Cache.Create(dc, width, height);
            if (record.Cache.IsValid())
                PaintGradient(record.Cache.Dc, {0, 0, width, height},
                              {record.TopLeft, record.TopRight, record.BottomLeft, record.BottomRight});
        }
        record.Cache.Blit(dc, edges.left, edges.top);
        if (record.DropCache == 1) {
            record.Cache.Free();
            record.CacheWidth = 0;
        }
    }

    void Paint(const clDLFrame& record) {
        const RECT edges = EdgesOf(record);
        if (record.IsFocus) {
            DrawFocusRect(dc, &edges);
            return;
        }
        const XGdiObject brush(CreateSolidBrush(record.Colour));
        if (brush.IsValid())
            FrameRect(dc, &edges, static_cast<HBRUSH>(brush.Get()));
    }

    void Paint(const clDLLine& record) {
        const XGdiObject pen(CreatePen(PS_SOLID, 0, record.Colour));
        const XSelected selected(dc, pen.Get());
        const RECT edges = EdgesOf(record);
        MoveToEx(dc, edges.left, edges.top, nullptr);
        LineTo(dc, edges.right, edges.bottom);
    }

    void Paint(clDLImage& record) {
        const XImageInUse image(record);
        record.Picture.Blit(dc, box.Across(record.Left, record.Picture.Width()),
                            box.Down(record.Top, record.Picture.Height()), XBitmap::ownSize, XBitmap::ownSize,
                            0, 0, record.RasterOp ? record.RasterOp : SRCCOPY);
    }

    void Paint(const clDLIcon& record) {
        const XIconInUse icon(record);
        if (icon.Handle)
            DrawIconEx(dc, box.Across(record.Left, icon.Size.cx), box.Down(record.Top, icon.Size.cy),
                       icon.Handle, 0, 0, 0, nullptr, DI_NORMAL);
    }

    void Paint(const clDLText& record) {
        XFont& font = fonts.For(dc, record, record.Colour);
        const XString shown = ShownText(record, font);
        const SIZE size = TextSize(record, shown, font);
        font.TextOut(box.Across(record.Left, size.cx), box.Down(record.Top, size.cy), shown, true);
    }

    XDisplayList& list;
    HDC dc;
    XLayoutBox box;
    std::int32_t layer = 0, next = 0;
    XTextFont fonts;
};
} // namespace

void XDisplayList::Paint(HDC dc, int x, int y) {
    if (Dirty) {
        Dirty = 0;
        SIZE size{};
        Measure(size);
        Width = size.cx;
        Height = size.cy;
    }
    Painter(*this, dc, x, y).Run();
}
