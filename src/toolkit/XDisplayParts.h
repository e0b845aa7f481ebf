// What the records of a display list need while they are measured or painted: a decoded picture,
// a copy of an icon, a font. Each gives back what it made.
#pragma once

#include "toolkit/XDisplayList.h"
#include "toolkit/XFont.h"

// Pixels; 0 by 0 without an icon.
[[nodiscard]] SIZE IconSize(HICON icon);

// An encoded picture is decoded into the record for the length of the scope.
class XImageInUse {
public:
    explicit XImageInUse(clDLImage& image);
    ~XImageInUse();
    XImageInUse(const XImageInUse&) = delete;
    XImageInUse& operator=(const XImageInUse&) = delete;

private:
    clDLImage& image;
    bool decoded = false;
};

// The client's icon may go at any time: it is copied first, and where that fails there is no icon.
class XIconInUse {
public:
    explicit XIconInUse(const clDLIcon& record);
    HICON Handle = nullptr; // borrowed; may be null
    SIZE Size{};            // pixels

private:
    XIcon copy;
};

// One font that follows the look of the texts and is made anew only when that changes.
class XTextFont {
public:
    // The font of the record, selected into `dc`. The record must outlive the next call.
    XFont& For(HDC dc, const clDLText& record, COLORREF colour);
    void Unselect() { font.Unselect(); }

private:
    XFont font;
    const clDLText* last = nullptr;
};

// The text as it is shown, shortened where the record has a limit. `font` is selected.
[[nodiscard]] XString ShownText(const clDLText& record, const XFont& font);
// Pixels, of that text.
[[nodiscard]] SIZE TextSize(const clDLText& record, const XString& shown, XFont& font);
