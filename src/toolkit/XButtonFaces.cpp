// The standard look of buttons with a caption.
#include "toolkit/XButtonGroup.h"
#include "toolkit/XCoordinate.h"
#include "toolkit/XFont.h"
#include "toolkit/XScreenDc.h"
#include "toolkit/XWindow.h"

#include <algorithm>

namespace {
struct FaceColours {
    std::uint32_t top, bottom, frame, text;
};
constexpr FaceColours normalColours{0xFEFEFE, 0xECECEC, 0xADADAD, 0x000000};
constexpr FaceColours hoverColours{0xFEF4EB, 0xFCDBC1, 0xDDAC84, 0x000000};
constexpr FaceColours pressedColours{0xF4CBA8, 0xFADDC4, 0xC08A5C, 0x000000};
constexpr FaceColours heldOnColours{0xFCDBC1, 0xFFFAEE, 0xDDAC84, 0x000000};
constexpr FaceColours disabledColours{0xF7F7F7, 0xF2F2F2, 0xCCCCCC, 0x949494};

// The caption as it is shown, and where its access key stands.
struct CaptionText {
    XString shown;
    int keyAt = 0; // position in `shown`, 0 for none
};

CaptionText ReadCaption(const wchar_t* caption) {
    CaptionText text;
    for (; *caption; ++caption) {
        if (*caption == L'&') {
            if (*++caption == 0)
                break;
            if (*caption != L'&')
                text.keyAt = text.shown.Count() + 1;
        }
        const wchar_t unit[] = {*caption, 0};
        text.shown += unit;
    }
    return text;
}

constexpr std::int32_t FromHalf(int offset) noexcept {
    return offset >= 0 ? anchorHalf | offset : anchorHalf | anchorBack | -offset;
}
constexpr std::int32_t FromFar(int offset) noexcept {
    return anchorFar | anchorBack | offset;
}

// The line under the access key, in pixels from the middle of the button.
struct KeyLine {
    bool shows = false;
    int left = 0, top = 0, right = 0, bottom = 0;
};

KeyLine MeasureKey(const CaptionText& text, int fontHeight, int maxWidth) {
    KeyLine line;
    if (text.keyAt == 0)
        return line;
    const XScreenDc screen;
    XFont font;
    font.Create(screen, nullptr, fontHeight);
    const int width = font.Width(nullptr, text.shown);
    TEXTMETRICW metrics{};
    GetTextMetricsW(screen, &metrics);
    line.shows = width < maxWidth; // otherwise the text will be cut
    line.left = font.Width(nullptr, text.shown.Mid(1, text.keyAt - 1)) - width / 2;
    line.right = font.Width(nullptr, text.shown.Mid(1, text.keyAt)) - width / 2;
    line.top = metrics.tmAscent + 1 - font.LineHeight() / 2;
    line.bottom = line.top + std::max(1, ScaleToDpi(1));
    return line;
}

void AddBody(XDisplayList& face, const FaceColours& colours) {
    const int edge = std::max(1, ScaleToDpi(1));
    face.AddBox({.Right = anchorFar,
                 .Bottom = anchorFar,
                 .FillColour = colours.top,
                 .PenColour = colours.frame,
                 .Radius = ScaleToDpi(3)});
    face.AddGradient({.Left = edge,
                      .Top = edge,
                      .Right = FromFar(edge),
                      .Bottom = FromFar(edge),
                      .TopLeft = colours.top,
                      .TopRight = colours.top,
                      .BottomLeft = colours.bottom,
                      .BottomRight = colours.bottom});
}
} // namespace

void BuildTextFaces(XButton& button, const wchar_t* caption, int fontHeight) {
    struct FaceRow {
        XDisplayList& face;
        const FaceColours& colours;
    };
    const FaceRow rows[] = {
        {button.NormalFace, normalColours},     {button.HoverFace, hoverColours},
        {button.PressedFace, pressedColours},   {button.HeldOnFace, heldOnColours},
        {button.DisabledFace, disabledColours},
    };
    const CaptionText text = ReadCaption(caption ? caption : L"");
    const int maxWidth = std::max(1, button.Width - ScaleToDpi(8));
    const KeyLine key = MeasureKey(text, fontHeight, maxWidth);
    for (const FaceRow& row : rows) {
        row.face.Clear();
        AddBody(row.face, row.colours);
        row.face.AddText({.Left = anchorHalf | anchorCentre,
                          .Top = anchorHalf | anchorCentre,
                          .Text = text.shown,
                          .Colour = row.colours.text,
                          .Size = fontHeight,
                          .MaxWidth = maxWidth});
        if (key.shows)
            row.face.AddFill({.Left = FromHalf(key.left),
                              .Top = FromHalf(key.top),
                              .Right = FromHalf(key.right),
                              .Bottom = FromHalf(key.bottom),
                              .Colour = row.colours.text});
    }
    const int inset = ScaleToDpi(3);
    button.FocusFace.Clear();
    button.FocusFace.AddFrame(
        {.Left = inset, .Top = inset, .Right = FromFar(inset), .Bottom = FromFar(inset), .IsFocus = 1});
}
