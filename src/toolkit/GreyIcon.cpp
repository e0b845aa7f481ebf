// An icon's pixels made grey.
#include "toolkit/GreyIcon.h"

#include "toolkit/XScreenDc.h"

#include <cstdint>

namespace {

constexpr unsigned lift = 35;

// 0xAARRGGBB, as bitmaps of 32 bits hold them; the alpha stays.
std::uint32_t Greyed(std::uint32_t pixel) {
    if ((pixel & 0xFFFFFF) == 0)
        return pixel;
    const unsigned mean = ((pixel & 0xFF) + (pixel >> 8 & 0xFF) + (pixel >> 16 & 0xFF)) / 3;
    const unsigned grey = mean + lift < 255 ? mean + lift : 255;
    return (pixel & 0xFF000000) | grey << 16 | grey << 8 | grey;
}

// A bitmap of 32 bits, since those of the screen's kind would lose the alpha. Empty on failure.
XGdiObject GreyCopy(HBITMAP colour) {
    BITMAP size{};
    if (!GetObjectW(colour, sizeof size, &size))
        return XGdiObject();
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size.bmWidth;
    info.bmiHeader.biHeight = -size.bmHeight;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    const XScreenDc screen;
    void* bits = nullptr;
    XGdiObject copy(CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    const UINT rows = static_cast<UINT>(size.bmHeight);
    const bool isRead =
        copy.IsValid() && GetDIBits(screen, colour, 0, rows, bits, &info, DIB_RGB_COLORS) != 0;
    if (!isRead)
        return XGdiObject();
    GdiFlush();
    auto* pixels = static_cast<std::uint32_t*>(bits);
    for (long i = 0; i < size.bmWidth * size.bmHeight; ++i)
        pixels[i] = Greyed(pixels[i]);
    return copy;
}

} // namespace

XIcon MakeGreyIcon(HICON icon) {
    ICONINFO parts{};
    if (!icon || !GetIconInfo(icon, &parts))
        return XIcon();
    const XGdiObject colour(parts.hbmColor), mask(parts.hbmMask);
    if (!colour.IsValid())
        return XIcon(CopyIcon(icon));
    const XGdiObject grey = GreyCopy(parts.hbmColor);
    if (!grey.IsValid())
        return XIcon();
    parts.fIcon = TRUE;
    parts.hbmColor = static_cast<HBITMAP>(grey.Get());
    return XIcon(CreateIconIndirect(&parts));
}
