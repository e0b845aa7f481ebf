// The layout of .ico and .cur files: a head, a directory, and pictures that are bitmaps without
// their file header or whole PNG files.
#include "toolkit/XIconFile.h"

namespace {
constexpr std::uint64_t headBytes = 6, entryBytes = 16, bitmapHeadBytes = 40;
constexpr std::uint32_t pngStart = 0x474E5089;
constexpr std::uint32_t longestSide = 4096; // pixels; icons end at 256

class Reader {
public:
    explicit Reader(const unsigned char* bytes) : bytes(bytes) {}
    [[nodiscard]] std::uint32_t Word(std::uint64_t at) const noexcept {
        return bytes[at] | static_cast<std::uint32_t>(bytes[at + 1]) << 8;
    }
    [[nodiscard]] std::uint32_t Dword(std::uint64_t at) const noexcept {
        return Word(at) | Word(at + 2) << 16;
    }

private:
    const unsigned char* bytes;
};

// Bytes of one picture whose rows are padded to 4 bytes.
std::uint64_t PlaneBytes(std::uint64_t width, std::uint64_t height, std::uint64_t bits) noexcept {
    return (width * bits + 31) / 32 * 4 * height;
}

// Of the bitmap at `at`, which has `left` bytes: colours, then a mask of one bit a pixel.
bool IsSoundBitmap(const Reader& file, std::uint64_t at, std::uint64_t left) noexcept {
    const std::uint32_t width = file.Dword(at + 4);
    const std::uint32_t height = file.Dword(at + 8) / 2; // of both parts together
    const std::uint32_t bits = file.Word(at + 14);
    const std::uint64_t used = file.Dword(at + 32);
    if (file.Dword(at) != bitmapHeadBytes || width == 0 || height == 0 || width > longestSide ||
        height > longestSide || bits == 0 || bits > 32 || used > 256)
        return false;
    const std::uint64_t colours = used || bits > 8 ? used : std::uint64_t{1} << bits;
    return bitmapHeadBytes + colours * 4 + PlaneBytes(width, height, bits) + PlaneBytes(width, height, 1) <=
           left;
}
} // namespace

bool IsBrokenIconFile(const unsigned char* bytes, std::uint64_t sizeBytes) noexcept {
    const Reader file(bytes);
    if (sizeBytes < headBytes || file.Word(0) != 0)
        return false;
    const std::uint32_t kind = file.Word(2), count = file.Word(4);
    if ((kind != 1 && kind != 2) || count == 0 || headBytes + entryBytes * count > sizeBytes)
        return true;
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint64_t entry = headBytes + entryBytes * i;
        const std::uint64_t size = file.Dword(entry + 8), at = file.Dword(entry + 12);
        if (size < bitmapHeadBytes || at + size > sizeBytes)
            return true;
        if (file.Dword(at) != pngStart && !IsSoundBitmap(file, at, size))
            return true;
    }
    return false;
}
