// A font and its selection into one device context; drawing and measuring of texts of one or
// several lines.
#pragma once

#include "foundation/XHandles.h"
#include "foundation/XString.h"

#include <cstdint>

// Without a font everything measures 0 and draws nothing. A font stays selected until Unselect,
// Destroy, another Select or the end of the object: the context must live that long.
class XFont {
public:
    XFont() = default;
    ~XFont() { Destroy(); }
    XFont(const XFont&) = delete;
    XFont& operator=(const XFont&) = delete;

    // Replaces the font. A name that is null, empty or longer than 31 characters becomes "Tahoma".
    // `size` is the height of a line in pixels, with its inner leading (a positive lfHeight).
    // With a `dc` the font is selected there at once.
    void Create(HDC dc, const wchar_t* name, int size, COLORREF colour = 0, bool bold = false,
                bool italic = false, bool underline = false);
    void Select(HDC dc);
    void Unselect(); // gives the context its font, text colour and background mode back
    void Destroy();
    [[nodiscard]] HFONT Handle() const noexcept { return static_cast<HFONT>(Font.Get()); } // borrowed

    // Draws into the selected context, `text` from its top left at (x, y). Lines end at CR or CR LF.
    void TextOut(int x, int y, const wchar_t* text, bool multiLine = false);
    // Pixels. A `dc` is selected first and stays so; null measures in the selected one. In lines
    // the width is that of the longest, modulo 65536; `tabOrigin` is the x from which tab stops count.
    [[nodiscard]] int Width(HDC dc, const wchar_t* text, bool multiLine = false, int tabOrigin = 0);
    // Both in the selected context, 0 without.
    [[nodiscard]] int Height(const wchar_t* text, bool multiLine = false) const;
    [[nodiscard]] int LineHeight() const;
    // Shortens to less than `maxWidth` pixels, ending in "..."; see FitText. True if it dropped any.
    bool FitWidth(int maxWidth, XString& text) const;

    std::uint8_t Selected = 0;
    HDC Dc = nullptr; // borrowed
    HGDIOBJ OldFont = nullptr;
    COLORREF OldColour = 0;
    int OldMode = 0;
    std::int32_t Transparent = 1; // greater than 0: texts leave the background as it is
    XGdiObject Font;
    LOGFONTW LogFont{};
    COLORREF Colour = 0;
    std::int32_t LineGap = 0; // pixels between lines

private:
    [[nodiscard]] SIZE Extent(const wchar_t* text, int units) const;
};
