// Bitmaps: making, copying, decoding and drawing them.
#include "toolkit/XBitmap.h"

#include "foundation/XFile.h"
#include "toolkit/XIconFile.h"
#include "toolkit/XScreenDc.h"

#include <olectl.h>

#include <cstring>
#include <limits>

namespace {
struct GlobalKind {
    using Value = HGLOBAL;
    static Value None() noexcept { return nullptr; }
    static void Close(Value v) noexcept { GlobalFree(v); }
};

constexpr std::uint64_t shortestPicture = 8; // bytes

// A copy of the bytes in movable memory.
XOwned<GlobalKind> GlobalCopy(const void* bytes, std::uint64_t sizeBytes) {
    XOwned<GlobalKind> memory(GlobalAlloc(GMEM_MOVEABLE | GMEM_NODISCARD, sizeBytes));
    void* target = memory.IsValid() ? GlobalLock(memory.Get()) : nullptr;
    if (target) {
        std::memcpy(target, bytes, sizeBytes);
        GlobalUnlock(memory.Get());
    } else {
        memory.Reset();
    }
    return memory;
}
} // namespace

XBitmap::XBitmap(XBitmap&& other) noexcept {
    *this = std::move(other);
}

XBitmap& XBitmap::operator=(XBitmap&& other) noexcept {
    if (this != &other) {
        Free();
        Bitmap = std::move(other.Bitmap);
        OldBitmap = std::exchange(other.OldBitmap, nullptr);
        Dc = std::exchange(other.Dc, nullptr);
        OwnsDc = std::exchange(other.OwnsDc, std::uint8_t{0});
    }
    return *this;
}

void XBitmap::Free() noexcept {
    if (Dc) {
        if (OldBitmap)
            SelectObject(Dc, OldBitmap);
        if (OwnsDc)
            DeleteDC(Dc);
    }
    Dc = nullptr;
    OldBitmap = nullptr;
    OwnsDc = 0;
    Bitmap.Reset();
}

void XBitmap::LoadResource(int id, bool map) {
    Free();
    const UINT flags = map ? LR_LOADMAP3DCOLORS | LR_LOADTRANSPARENT : 0;
    Bitmap.Reset(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id), IMAGE_BITMAP, 0, 0, flags));
}

void XBitmap::Create(HDC dc, int width, int height) {
    Free();
    if (width <= 0 || height <= 0)
        return;
    const XScreenDc screen;
    Bitmap.Reset(CreateCompatibleBitmap(dc ? dc : screen, width, height));
    if (!Bitmap.IsValid())
        return;
    Dc = CreateCompatibleDC(dc ? dc : screen);
    OwnsDc = 1;
    OldBitmap = Dc ? SelectObject(Dc, Bitmap.Get()) : nullptr;
    if (!OldBitmap)
        Free();
}

void XBitmap::CopyFrom(HDC source, int width, int height) {
    Create(nullptr, width, height);
    if (Dc)
        BitBlt(Dc, 0, 0, width, height, source, 0, 0, SRCCOPY);
}

void XBitmap::Copy(const XBitmap& source) {
    if (this == &source)
        return;
    if (source.Dc)
        CopyFrom(source.Dc, source.Width(), source.Height());
    else
        Copy(source.Handle());
}

void XBitmap::Copy(HBITMAP source) {
    Free();
    BITMAP facts{};
    if (!source || !GetObjectW(source, sizeof facts, &facts))
        return;
    const XMemoryDc from(CreateCompatibleDC(nullptr));
    const XSelected selected(from.Get(), source);
    if (GetCurrentObject(from.Get(), OBJ_BITMAP) == source)
        CopyFrom(from.Get(), facts.bmWidth, facts.bmHeight);
}

void XBitmap::Decode(const void* bytes, std::uint64_t sizeBytes) {
    Free();
    if (!bytes || sizeBytes < shortestPicture || sizeBytes > std::numeric_limits<LONG>::max())
        return;
    if (IsBrokenIconFile(static_cast<const unsigned char*>(bytes), sizeBytes))
        return;
    const XOwned<GlobalKind> memory = GlobalCopy(bytes, sizeBytes);
    XCom<IStream> stream;
    XCom<IPicture> picture;
    if (!memory.IsValid() ||
        FAILED(CreateStreamOnHGlobal(memory.Get(), FALSE, reinterpret_cast<IStream**>(stream.Receive()))) ||
        FAILED(OleLoadPicture(stream.Get(), static_cast<LONG>(sizeBytes), FALSE, IID_IPicture,
                              picture.Receive())) ||
        !picture)
        return;

    OLE_XSIZE_HIMETRIC width = 0; // hundredths of a millimetre, both
    OLE_YSIZE_HIMETRIC height = 0;
    if (FAILED(picture->get_Width(&width)) || FAILED(picture->get_Height(&height)))
        return;
    const XScreenDc screen;
    Create(screen, MulDiv(width, GetDeviceCaps(screen, LOGPIXELSX), 2540),
           MulDiv(height, GetDeviceCaps(screen, LOGPIXELSY), 2540));
    // A picture's own y axis points upwards.
    if (Dc && FAILED(picture->Render(Dc, 0, 0, Width(), Height(), 0, height, width, -height, nullptr)))
        Free();
}

void XBitmap::LoadFile(const XString& path) {
    Free();
    XBuffer bytes;
    if (ReadWholeFile(path, bytes))
        Decode(bytes.data, bytes.size);
}

int XBitmap::Width() const noexcept {
    BITMAP facts{};
    return Bitmap.IsValid() && GetObjectW(Bitmap.Get(), sizeof facts, &facts) ? facts.bmWidth : 0;
}

int XBitmap::Height() const noexcept {
    BITMAP facts{};
    return Bitmap.IsValid() && GetObjectW(Bitmap.Get(), sizeof facts, &facts) ? facts.bmHeight : 0;
}

void XBitmap::Blit(HDC dc, int x, int y, int width, int height, int sourceX, int sourceY,
                   DWORD rasterOp) const {
    if (!Bitmap.IsValid())
        return;
    if (width == ownSize)
        width = Width();
    if (height == ownSize)
        height = Height();
    if (Dc) {
        BitBlt(dc, x, y, width, height, Dc, sourceX, sourceY, rasterOp);
        return;
    }
    const XMemoryDc from(CreateCompatibleDC(dc));
    const XSelected selected(from.Get(), Bitmap.Get());
    BitBlt(dc, x, y, width, height, from.Get(), sourceX, sourceY, rasterOp);
}
