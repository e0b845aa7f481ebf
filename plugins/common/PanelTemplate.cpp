// The layout of DIALOGEX: a fixed head, then menu, class and title, each a terminated text, a 0 or
// 0xFFFF with a number; then the font; then the controls, each at a multiple of 4 bytes.
#include "plugins/common/PanelTemplate.h"

#include "foundation/XString.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr std::size_t headBytes = 26;
constexpr std::size_t fontHeadBytes = 6; // point size, weight, italic, character set
constexpr int pointsPerInch = 72;

using ByteArray = std::vector<unsigned char>;

WORD WordAt(const ByteArray& bytes, std::size_t at) {
    WORD value = 0;
    if (at + sizeof value <= bytes.size())
        std::memcpy(&value, bytes.data() + at, sizeof value);
    return value;
}

std::size_t BehindText(const ByteArray& bytes, std::size_t at) {
    while (WordAt(bytes, at) != 0)
        at += 2;
    return at + 2;
}

std::size_t BehindNameOrNumber(const ByteArray& bytes, std::size_t at) {
    return WordAt(bytes, at) == 0xFFFF ? at + 4 : BehindText(bytes, at);
}

std::size_t Aligned(std::size_t at) {
    return (at + 3) & ~std::size_t(3);
}

void Append(ByteArray& bytes, const void* data, std::size_t count) {
    const unsigned char* from = static_cast<const unsigned char*>(data);
    bytes.insert(bytes.end(), from, from + count);
}

bool FontOf(HWND window, LOGFONTW& font) {
    const HFONT handle = reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
    return handle && GetObjectW(handle, sizeof font, &font) == sizeof font && font.lfHeight < 0;
}

WORD PointSize(HWND window, const LOGFONTW& font) {
    const HDC dc = GetDC(window);
    const int dotsPerInch = GetDeviceCaps(dc, LOGPIXELSY);
    ReleaseDC(window, dc);
    return static_cast<WORD>(MulDiv(-font.lfHeight, pointsPerInch, dotsPerInch));
}

} // namespace

ByteArray PanelTemplate(HMODULE module, int dialogId, HWND like) {
    const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(dialogId), RT_DIALOG);
    const HGLOBAL loaded = found ? LoadResource(module, found) : nullptr;
    const void* data = loaded ? LockResource(loaded) : nullptr;
    ByteArray original;
    if (data)
        Append(original, data, SizeofResource(module, found));
    LOGFONTW font{};
    if (original.empty() || !FontOf(like, font))
        return original;
    std::size_t at = BehindNameOrNumber(original, headBytes);
    at = BehindNameOrNumber(original, at);
    at = BehindText(original, at);
    const std::size_t behindFont = Aligned(BehindText(original, at + fontHeadBytes));
    if (behindFont > original.size())
        return original;
    ByteArray changed(original.begin(), original.begin() + static_cast<std::ptrdiff_t>(at));
    const WORD sizeAndWeight[] = {PointSize(like, font), static_cast<WORD>(font.lfWeight)};
    const BYTE italicAndSet[] = {static_cast<BYTE>(font.lfItalic != 0), font.lfCharSet};
    Append(changed, sizeAndWeight, sizeof sizeAndWeight);
    Append(changed, italicAndSet, sizeof italicAndSet);
    Append(changed, font.lfFaceName,
           static_cast<std::size_t>(TextLength(font.lfFaceName) + 1) * sizeof(wchar_t));
    changed.resize(Aligned(changed.size()));
    Append(changed, original.data() + behindFont, original.size() - behindFont);
    return changed;
}
