// A bitmap, and the memory context that it is selected into while there is one: off-screen images,
// pictures from resources and from encoded bytes.
#pragma once

#include "foundation/XBuffer.h"
#include "foundation/XHandles.h"
#include "foundation/XString.h"

#include <cstdint>

// Every operation that makes a bitmap frees the one before; after a failure there is none.
class XBitmap {
public:
    static constexpr int ownSize = -1; // as a width or height of Blit: the bitmap's own

    XBitmap() = default;
    ~XBitmap() { Free(); }
    XBitmap(XBitmap&& other) noexcept;
    XBitmap& operator=(XBitmap&& other) noexcept;
    XBitmap(const XBitmap&) = delete;
    XBitmap& operator=(const XBitmap&) = delete;

    // A bitmap of this module; with `map`, greys become the system's colours and the colour of the
    // first pixel the window's.
    void LoadResource(int id, bool map = false);
    // Pixels, compatible with `dc` (null: the screen), selected into a `Dc` of its own to draw in.
    void Create(HDC dc, int width, int height);
    void Copy(const XBitmap& source);
    void Copy(HBITMAP source); // one that is selected into no other context
    // An encoded picture: BMP, JPEG, GIF, icon. Needs COM on this thread for all but BMP.
    void Decode(const void* bytes, std::uint64_t sizeBytes);
    void LoadFile(const XString& path);
    void Free() noexcept;

    [[nodiscard]] bool IsValid() const noexcept { return Bitmap.IsValid(); }
    [[nodiscard]] HBITMAP Handle() const noexcept { return static_cast<HBITMAP>(Bitmap.Get()); } // borrowed
    [[nodiscard]] int Width() const noexcept; // pixels; 0 without a bitmap
    [[nodiscard]] int Height() const noexcept;
    // Copies the part at (sourceX, sourceY) to (x, y) of `dc`.
    void Blit(HDC dc, int x, int y, int width = ownSize, int height = ownSize, int sourceX = 0,
              int sourceY = 0, DWORD rasterOp = SRCCOPY) const;

    XGdiObject Bitmap;
    HGDIOBJ OldBitmap = nullptr; // what the bitmap replaced in Dc
    HDC Dc = nullptr;            // where the bitmap is selected; may be null
    std::uint8_t OwnsDc = 0;     // Dc is deleted with the bitmap

private:
    void CopyFrom(HDC source, int width, int height);
};
