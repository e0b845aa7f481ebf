// Fonts: selection, drawing and measuring.
#include "toolkit/XFont.h"

#include "foundation/XArray.h"
#include "toolkit/XTextFit.h"

#include <algorithm>
#include <cstring>

void XFont::Create(HDC dc, const wchar_t* name, int size, COLORREF colour, bool bold, bool italic,
                   bool underline) {
    Destroy();
    Transparent = 1;
    LineGap = 0;
    Colour = colour;

    LogFont = {};
    LogFont.lfHeight = size;
    LogFont.lfWeight = bold ? FW_BOLD : FW_NORMAL;
    LogFont.lfItalic = italic;
    LogFont.lfUnderline = underline;
    const int length = TextLength(name);
    const wchar_t* face = length > 0 && length < LF_FACESIZE ? name : L"Tahoma";
    std::memcpy(LogFont.lfFaceName, face, static_cast<std::size_t>(TextLength(face)) * sizeof(wchar_t));
    Font.Reset(CreateFontIndirectW(&LogFont));
    if (dc)
        Select(dc);
}

void XFont::Select(HDC dc) {
    Unselect();
    if (!Font.IsValid())
        return;
    OldFont = SelectObject(dc, Font.Get());
    if (!OldFont)
        return;
    Dc = dc;
    Selected = 1;
    OldColour = SetTextColor(dc, Colour);
    OldMode = SetBkMode(dc, Transparent > 0 ? TRANSPARENT : OPAQUE);
}

void XFont::Unselect() {
    if (!Selected)
        return;
    SelectObject(Dc, OldFont);
    SetTextColor(Dc, OldColour);
    SetBkMode(Dc, OldMode);
    Selected = 0;
    Dc = nullptr;
}

void XFont::Destroy() {
    Unselect();
    Font.Reset();
}

void XFont::TextOut(int x, int y, const wchar_t* text, bool multiLine) {
    if (!Selected || !text)
        return;
    if (!multiLine) {
        const UINT options = Transparent != 0 ? 0 : ETO_OPAQUE;
        ExtTextOutW(Dc, x, y, options, nullptr, text, static_cast<UINT>(TextLength(text)), nullptr);
        return;
    }
    const int advance = LineHeight() + LineGap;
    XStringArray lines;
    SplitLines(text, lines);
    for (const XString& line : lines) {
        TabbedTextOutW(Dc, x, y, line.Text(), line.Count(), 0, nullptr, x);
        y += advance;
    }
}

SIZE XFont::Extent(const wchar_t* text, int units) const {
    SIZE size{};
    if (!Selected || !GetTextExtentPoint32W(Dc, text, units, &size))
        return {};
    return size;
}

int XFont::Width(HDC dc, const wchar_t* text, bool multiLine, int tabOrigin) {
    if (dc)
        Select(dc);
    if (!Selected || !text)
        return 0;
    if (!multiLine)
        return Extent(text, TextLength(text)).cx;

    std::vector<std::int32_t> stops;
    if (tabOrigin != 0) {
        const int average = std::max<int>(Extent(L"abcdefABCDEF", 12).cx / 12, 1);
        RECT desktop{};
        GetClientRect(GetDesktopWindow(), &desktop);
        stops = TabStops(average, tabOrigin, desktop.right);
    }
    int widest = 0;
    XStringArray lines;
    SplitLines(text, lines);
    for (const XString& line : lines) {
        const DWORD extent =
            GetTabbedTextExtentW(Dc, line.Text(), line.Count(), static_cast<int>(stops.size()), stops.data());
        widest = std::max<int>(widest, LOWORD(extent));
    }
    return widest;
}

int XFont::LineHeight() const {
    return Extent(L"Ay", 2).cy;
}

int XFont::Height(const wchar_t* text, bool multiLine) const {
    if (!Selected)
        return 0;
    int lineCount = 1;
    if (multiLine) {
        XStringArray lines;
        SplitLines(text, lines);
        lineCount = static_cast<int>(lines.Count());
    }
    return TextBlockHeight(lineCount, LineHeight(), LineGap);
}

bool XFont::FitWidth(int maxWidth, XString& text) const {
    return FitText(text, maxWidth, [this](const XString& shown) { return Extent(shown, shown.Count()).cx; });
}
