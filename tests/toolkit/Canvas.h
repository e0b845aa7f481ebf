// What tests of drawing paint on and with: a white memory bitmap whose pixels can be read, icons
// and encoded pictures of one colour.
#pragma once

#include "toolkit/XBitmap.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

class Canvas {
public:
    explicit Canvas(int width = 60, int height = 60) : width(width), height(height) {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        bitmap.Bitmap.Reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        pixels = static_cast<std::uint32_t*>(bits);
        bitmap.Dc = CreateCompatibleDC(nullptr);
        bitmap.OwnsDc = 1;
        bitmap.OldBitmap = SelectObject(bitmap.Dc, bitmap.Handle());
        Wipe();
    }
    operator HDC() const { return bitmap.Dc; }
    HBITMAP Handle() const { return bitmap.Handle(); }

    void Wipe(COLORREF colour = 0xFFFFFF) {
        GdiFlush();
        for (int i = 0; i < width * height; ++i)
            pixels[i] = Swap(colour);
    }
    COLORREF At(int x, int y) const {
        GdiFlush();
        return Swap(pixels[y * width + x] & 0xFFFFFF);
    }
    int Count(COLORREF colour) const { // pixels of that colour
        int count = 0;
        for (int i = 0; i < width * height; ++i)
            count += At(i % width, i / width) == colour;
        return count;
    }
    RECT Marked() const { // around all that is not white
        RECT r{width, height, 0, 0};
        for (int i = 0; i < width * height; ++i)
            if (At(i % width, i / width) != 0xFFFFFF) {
                const RECT pixel{i % width, i / width, i % width + 1, i / width + 1};
                r = {std::min(r.left, pixel.left), std::min(r.top, pixel.top), std::max(r.right, pixel.right),
                     std::max(r.bottom, pixel.bottom)};
            }
        return r;
    }
    std::vector<std::uint32_t> Pixels() const {
        GdiFlush();
        return {pixels, pixels + width * height};
    }

private:
    static std::uint32_t Swap(std::uint32_t c) { return (c & 0xFF) << 16 | (c & 0xFF00) | (c >> 16 & 0xFF); }
    int width, height;
    XBitmap bitmap;
    std::uint32_t* pixels = nullptr;
};

// A square in one colour, 0xAARRGGBB.
inline XIcon MakeIcon(int size, std::uint32_t argb) {
    const std::vector<std::uint32_t> pixels(static_cast<std::size_t>(size * size), argb);
    const std::vector<std::uint32_t> none(pixels.size());
    const XGdiObject colour(CreateBitmap(size, size, 1, 32, pixels.data()));
    const XGdiObject mask(CreateBitmap(size, size, 1, 1, none.data()));
    ICONINFO info{TRUE, 0, 0, static_cast<HBITMAP>(mask.Get()), static_cast<HBITMAP>(colour.Get())};
    return XIcon(CreateIconIndirect(&info));
}

// A bitmap file in one colour.
inline std::vector<unsigned char> EncodedBitmap(int width, int height, COLORREF colour) {
    const std::size_t row = (static_cast<std::size_t>(width) * 3 + 3) / 4 * 4;
    const std::size_t head = sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER);
    std::vector<unsigned char> bytes(head + row * static_cast<std::size_t>(height));
    const BITMAPFILEHEADER file{0x4D42, static_cast<DWORD>(bytes.size()), 0, 0, static_cast<DWORD>(head)};
    const BITMAPINFOHEADER info{sizeof info, width, height, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    std::memcpy(bytes.data(), &file, sizeof file);
    std::memcpy(bytes.data() + sizeof file, &info, sizeof info);
    for (std::size_t y = 0; y < static_cast<std::size_t>(height); ++y)
        for (std::size_t x = 0; x < static_cast<std::size_t>(width); ++x) {
            unsigned char* pixel = bytes.data() + head + y * row + x * 3;
            pixel[0] = GetBValue(colour);
            pixel[1] = GetGValue(colour);
            pixel[2] = GetRValue(colour);
        }
    return bytes;
}
