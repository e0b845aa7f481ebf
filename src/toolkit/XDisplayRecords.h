// The records of a display list that own nothing of the system's. Coordinates are those of
// XCoordinate.h, colours 0x00BBGGRR. A record shows when all bits of its Mask are active; Layer is
// set by adding it.
#pragma once

#include "foundation/XString.h"
#include "toolkit/XCoordinate.h"

struct clDLFill {
    std::int32_t Left = 0, Top = 0, Right = 0, Bottom = 0;
    std::uint32_t Colour = 0;
    std::uint32_t Mask = 0;
    std::int32_t Layer = 0;
};

struct clDLBox {
    std::int32_t Left = 0, Top = 0, Right = 0, Bottom = 0;
    std::uint32_t FillColour = 0, PenColour = 0;
    std::uint32_t Mask = 0;
    std::int32_t Layer = 0;
    std::int32_t Radius = 0; // of the corners' ellipses, both dimensions; 0 is square
};

struct clDLFrame {
    std::int32_t Left = 0, Top = 0, Right = 0, Bottom = 0;
    std::uint32_t Colour = 0;
    std::uint8_t IsFocus = 0; // the system's dotted focus frame; Colour is not used then
    std::uint32_t Mask = 0;
    std::int32_t Layer = 0;
};

struct clDLLine { // without its last pixel
    std::uint32_t Colour = 0;
    std::int32_t Left = 0, Top = 0, Right = 0, Bottom = 0;
    std::uint32_t Mask = 0;
    std::int32_t Layer = 0;
};

struct clDLText { // lines end at CR or CR LF; tabs are drawn
    std::int32_t Left = 0, Top = 0;
    XString Text = XString();
    XString FontName = XString(); // empty: "Tahoma"
    std::uint32_t Colour = 0;
    std::uint8_t Bold = 0, Italic = 0, Underline = 0;
    std::int32_t Size = 0;     // font height in pixels, 0 means 13
    std::int32_t MaxWidth = 0; // pixels that the text is shortened below, 0 means no limit
    std::uint32_t Mask = 0;
    std::int32_t Layer = 0;
};
