// Retained drawing: a client fills a list with records, and the list paints them at any origin, in
// any size and in any of the states that their masks tell apart.
#pragma once

#include "foundation/XArray.h"
#include "toolkit/XBitmap.h"
#include "toolkit/XDisplayRecords.h"

#include <windows.h>

struct clDLGradient { // a colour for each corner
    std::int32_t Left = 0, Top = 0, Right = 0, Bottom = 0;
    std::uint32_t TopLeft = 0, TopRight = 0, BottomLeft = 0, BottomRight = 0;
    std::uint32_t Mask = 0;
    std::int32_t Layer = 0;
    XBitmap Cache = XBitmap(); // rendered once per size
    std::int32_t CacheWidth = 0, CacheHeight = 0;
    std::uint8_t DropCache = 0; // 1: free the cache after each paint
};

struct clDLImage {
    std::int32_t Left = 0, Top = 0;
    std::uint32_t RasterOp = 0; // 0 means SRCCOPY
    std::uint32_t Mask = 0;
    std::int32_t Layer = 0;
    XBitmap Picture = XBitmap();
    XBuffer Encoded = XBuffer();            // an encoded picture, a bitmap only while it is painted
    const XBuffer* SharedEncoded = nullptr; // the same, the client's; wins over Encoded
};

struct clDLIcon {
    XIcon Icon = XIcon();
    std::int32_t Left = 0, Top = 0;
    std::uint32_t Mask = 0;
    std::int32_t Layer = 0;
    HICON SharedIcon = nullptr; // the client's; wins over Icon
};

// `list.AddFill({.Right = anchorFar, .Bottom = anchorFar, .Colour = 0xFFFFFF, .Mask = 4})`
//
// Adding copies the record. Layer 0 takes the next free layer, so such records paint in the order
// of adding; another value is the layer itself, and records of one layer paint by kind: fills,
// boxes, gradients, frames, lines, images, icons, texts. The answer of every Add is `layer` + 1.
class XDisplayList {
public:
    XDisplayList() = default;
    XDisplayList(const XDisplayList&) = delete;
    XDisplayList& operator=(const XDisplayList&) = delete;

    int AddFill(const clDLFill& record, int layer = 0);
    int AddBox(const clDLBox& record, int layer = 0);
    int AddFrame(const clDLFrame& record, int layer = 0);
    int AddGradient(const clDLGradient& record, int layer = 0);
    int AddLine(const clDLLine& record, int layer = 0);
    // Copies `Encoded` if it holds bytes, otherwise `Picture`.
    int AddImage(const clDLImage& record, int layer = 0);
    int AddImage(const clDLImage& record, HBITMAP borrowed, int layer = 0); // copies the bitmap if not null
    int AddIcon(const clDLIcon& record, int layer = 0);
    int AddIcon(const clDLIcon& record, HICON borrowed, int layer = 0); // copies the icon
    int AddText(const clDLText& record, int layer = 0);

    void Clear(); // Width and Height stay
    // Clears, then takes the records of `source` alone, each one layer higher than there.
    void Copy(const XDisplayList& source);
    // The layout box becomes at least this large, in pixels: exactly so if nothing reaches beyond.
    void FitTo(int width, int height);

    // (x, y) is the top left of the layout box in `dc`.
    void Paint(HDC dc, int x, int y);
    // What the records need when nothing is anchored to the box, in pixels, with pads and minimums.
    void Measure(SIZE& result);

    // Clients may change records in place between paints, and set Dirty if the size depends on it.
    XArray<clDLFill> Fills;
    XArray<clDLBox> Boxes;
    XArray<clDLFrame> Frames;
    XArray<clDLGradient> Gradients;
    XArray<clDLLine> Lines;
    XArray<clDLImage> Images;
    XArray<clDLIcon> Icons;
    XArray<clDLText> Texts;
    std::int32_t Width = 0, Height = 0; // the layout box; of the last paint
    std::uint8_t Dirty = 1;             // Paint measures the layout box again
    std::int32_t PadRight = 0, PadBottom = 0;
    std::int32_t MinWidth = 0, MinHeight = 0;
    std::int32_t LayerCount = 0;
    std::uint32_t ActiveMask = 0;

private:
    std::int32_t TakeLayer(int layer);
};
