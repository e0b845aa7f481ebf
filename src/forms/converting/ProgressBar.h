// Progress bars made of two bitmaps, the empty and the full bar, drawn off-screen first.
#pragma once

#include "resources/ids.h"
#include "toolkit/XBitmap.h"

#include <windows.h>

// The two bitmaps of a kind of bar, by their resources for 96 dots per inch.
struct clBarImages {
    int emptyId, fullId;
};
inline constexpr clBarImages overallBarImages = {ID_BITMAP_BAR_EMPTY, ID_BITMAP_BAR_FULL};
inline constexpr clBarImages rowBarImages = {ID_BITMAP_ROW_EMPTY, ID_BITMAP_ROW_FULL};

// All bars of one size.
class clProgressBars {
public:
    explicit clProgressBars(const clBarImages& images) : images(images) {}

    // Takes the bitmaps that were drawn for this screen's resolution, or stretches the nearest ones
    // to it. Without bitmaps nothing is drawn, and the bars have no size.
    void Load();
    [[nodiscard]] RECT At(POINT leftTop) const; // pixels
    // An empty bar and, over its left `percent` of the width, a full one. Percents above 100 count as
    // 100, negative ones as 0.
    void Draw(HDC dc, const RECT& place, int percent);

private:
    const clBarImages& images;
    XBitmap empty;
    XBitmap full;
    XBitmap screen;
};
