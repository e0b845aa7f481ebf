// Loading and drawing of progress bars.
#include "forms/converting/ProgressBar.h"

#include "toolkit/XWindow.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr int plainDpi = 96;

// Resolutions that the bars are drawn for, and how far their resources are from those for 96.
struct Drawn {
    int dpi, idOffset;
};
constexpr Drawn drawn[] = {{96, 0}, {120, 30}, {144, 10}, {192, 20}};

// The coarsest that loses nothing on this screen, else the finest.
const Drawn& DrawnFor(int dpi) {
    for (const Drawn& each : drawn)
        if (each.dpi >= dpi)
            return each;
    return drawn[std::size(drawn) - 1];
}

void LoadScaled(XBitmap& bitmap, int plainId) {
    const int dpi = ScaleToDpi(plainDpi);
    const Drawn& source = DrawnFor(dpi);
    XBitmap image;
    image.LoadResource(plainId + source.idOffset, true); // corners of the form's colour
    bitmap.Copy(image);
    if (source.dpi == dpi || !bitmap.IsValid())
        return;
    XBitmap scaled;
    scaled.Create(nullptr, MulDiv(bitmap.Width(), dpi, source.dpi), MulDiv(bitmap.Height(), dpi, source.dpi));
    SetStretchBltMode(scaled.Dc, HALFTONE);
    SetBrushOrgEx(scaled.Dc, 0, 0, nullptr);
    StretchBlt(scaled.Dc, 0, 0, scaled.Width(), scaled.Height(), bitmap.Dc, 0, 0, bitmap.Width(),
               bitmap.Height(), SRCCOPY);
    bitmap = std::move(scaled);
}

} // namespace

void clProgressBars::Load() {
    LoadScaled(empty, images.emptyId);
    LoadScaled(full, images.fullId);
    screen.Create(nullptr, empty.Width(), empty.Height());
}

RECT clProgressBars::At(POINT leftTop) const {
    return {leftTop.x, leftTop.y, leftTop.x + empty.Width(), leftTop.y + empty.Height()};
}

void clProgressBars::Draw(HDC dc, const RECT& place, int percent) {
    empty.Blit(screen.Dc, 0, 0);
    const int filled = empty.Width() * std::clamp(percent, 0, 100) / 100;
    if (filled > 0)
        full.Blit(screen.Dc, 0, 0, filled);
    screen.Blit(dc, place.left, place.top);
}
