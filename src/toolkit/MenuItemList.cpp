// The records of a menu item's display list, in the order in which they paint.
#include "toolkit/MenuItemList.h"

#include "toolkit/GreyIcon.h"

#include <algorithm>

namespace {

constexpr std::uint32_t chosen = menuSelected | menuEnabled;
constexpr std::int32_t fromFar = anchorFar | anchorBack; // pixels before the far edge
constexpr std::int32_t centred = anchorHalf | anchorCentre;

// The ground is the strip's where there is one.
void AddGround(XDisplayList& list, const clMenuLook& look) {
    list.AddFill({.Right = anchorFar, .Bottom = anchorFar, .Colour = GetSysColor(COLOR_MENU)});
    if (!look.Strip)
        return;
    clDLGradient strip;
    strip.Right = look.Strip + 3;
    strip.Bottom = anchorFar;
    strip.TopLeft = strip.BottomLeft = 0xF8F8F8;
    strip.TopRight = strip.BottomRight = 0xE6E6E6;
    strip.DropCache = 1; // a long menu would keep hundreds of bitmaps
    list.AddGradient(strip);
}

void AddHighlights(XDisplayList& list, const clMenuLook& look) {
    list.AddFill({.Left = look.Strip + 8,
                  .Top = 2,
                  .Right = fromFar | 4,
                  .Bottom = fromFar | 2,
                  .Colour = 0xFFF9F3,
                  .Mask = menuChecked});
    list.AddBox({.Left = 1,
                 .Top = 0,
                 .Right = fromFar | 1,
                 .Bottom = anchorFar,
                 .FillColour = 0xFFFAEE,
                 .PenColour = 0xEBD8A8,
                 .Mask = chosen});
    clDLGradient gradient;
    gradient.Left = 3;
    gradient.Top = 2;
    gradient.Right = fromFar | 3;
    gradient.Bottom = fromFar | 2;
    gradient.TopLeft = gradient.TopRight = 0xF7F4EC;
    gradient.BottomLeft = gradient.BottomRight = 0xF4EDDB;
    gradient.Mask = chosen;
    gradient.DropCache = 1;
    list.AddGradient(gradient);
}

// The box in the strip and the brackets at both ends of the highlight.
void AddCheckedFrame(XDisplayList& list, const clMenuLook& look) {
    constexpr std::uint32_t pen = 0xCDBA8A;
    list.AddBox({.Left = 1,
                 .Top = 1,
                 .Right = look.Strip + 2,
                 .Bottom = fromFar | 1,
                 .FillColour = 0xEAE5DC,
                 .PenColour = pen,
                 .Mask = menuChecked});
    const std::int32_t left = look.Strip + 5, right = fromFar | 2, bottom = fromFar | 2;
    const struct {
        std::int32_t left, top, right, bottom;
    } lines[] = {
        {left, 1, left, bottom},    {right, 1, right, bottom},        {left, 1, left + 2, 1},
        {right, 1, fromFar | 4, 1}, {left, bottom, left + 2, bottom}, {right, bottom, fromFar | 4, bottom},
    };
    for (const auto& line : lines)
        list.AddLine({.Colour = pen,
                      .Left = line.left,
                      .Top = line.top,
                      .Right = line.right,
                      .Bottom = line.bottom,
                      .Mask = menuChecked});
}

void AddTexts(XDisplayList& list, const XString& text, const clMenuLook& look) {
    const struct {
        std::uint32_t mask, colour;
    } looks[] = {{menuEnabled, 0}, {menuChecked, 0}, {menuDisabled, 0xC0C0C0}};
    for (const auto& [mask, colour] : looks)
        list.AddText({.Left = look.Strip + 10,
                      .Top = centred,
                      .Text = text,
                      .Colour = colour,
                      .Size = look.FontHeight,
                      .Mask = mask});
}

void AddIcons(XDisplayList& list, HICON icon, const clMenuLook& look) {
    clDLIcon record;
    record.Left = 3;
    // Two pixels from the top where the icon makes the item's height, in the middle where the text does.
    record.Top = std::max(2, (look.FontHeight + 3 - look.IconHeight) / 2);
    record.Mask = menuUnselected | menuEnabled;
    record.SharedIcon = icon;
    list.AddIcon(record);
    record.Mask = chosen;
    list.AddIcon(record);
    record.SharedIcon = nullptr;
    record.Mask = menuDisabled;
    if (const XIcon grey = MakeGreyIcon(icon); grey.IsValid())
        list.AddIcon(record, grey.Get());
}

// Two strokes near the far edge, each two lines thick at 96 dots per inch.
void AddCheckMark(XDisplayList& list, const clMenuLook& look) {
    const auto scaled = [&look](int pixels) { return pixels * look.Scale96 / 96; };
    const auto x = [&scaled](int pixels, int line) { return fromFar | (scaled(pixels) + line); };
    const auto y = [&scaled](int pixels) { return anchorHalf | scaled(pixels); };
    const int thickness = scaled(2);
    for (int i = 0; i < thickness; ++i)
        list.AddLine({.Left = x(11, i), .Top = y(3), .Right = x(9, i), .Bottom = y(5), .Mask = menuChecked});
    for (int i = 0; i < thickness; ++i)
        list.AddLine({.Left = x(10, i), .Top = y(4), .Right = x(6, i), .Bottom = y(0), .Mask = menuChecked});
}

} // namespace

void BuildMenuItem(XDisplayList& list, const XString& text, HICON icon, const clMenuLook& look) {
    list.Clear();
    AddGround(list, look);
    AddHighlights(list, look);
    if (look.Strip)
        AddCheckedFrame(list, look);
    AddTexts(list, text, look);
    if (icon)
        AddIcons(list, icon, look);
    AddCheckMark(list, look);
}

void BuildMenuSeparator(XDisplayList& list, const clMenuLook& look) {
    list.Clear();
    AddGround(list, look);
    list.AddLine({.Colour = 0xC4C4C4,
                  .Left = look.Strip + 10,
                  .Top = anchorHalf,
                  .Right = anchorFar,
                  .Bottom = anchorHalf});
}
