// What a row of a value list is drawn from: one display list that holds all of its states.
#include "toolkit/XValueList.h"

#include "toolkit/XFont.h"
#include "toolkit/XScreenDc.h"
#include "toolkit/XValueMasks.h"

namespace {
constexpr std::int32_t middle = anchorHalf | anchorCentre;

constexpr COLORREF white = 0xFFFFFF;

void AddBackground(XDisplayList& records, std::uint32_t kind) {
    if (kind == valueBanner)
        records.AddGradient({.Right = anchorFar,
                             .Bottom = anchorFar,
                             .TopLeft = white,
                             .TopRight = 0xF5EEDD,
                             .BottomLeft = white,
                             .BottomRight = 0xFFFAEE});
    else
        records.AddFill({.Right = anchorFar, .Bottom = anchorFar, .Colour = white});
    records.AddBox({.Left = 1,
                    .Right = anchorFar,
                    .Bottom = anchorFar,
                    .FillColour = 0xFFFAEE,
                    .PenColour = 0xEBD8A8,
                    .Mask = maskSelected});
    // Every row is selected some time: kept, its bitmap would cost each of them two handles.
    records.AddGradient({.Left = 3,
                         .Top = 2,
                         .Right = anchorFar | anchorBack | 3,
                         .Bottom = anchorFar | anchorBack | 2,
                         .TopLeft = 0xF7F4EC,
                         .TopRight = 0xF7F4EC,
                         .BottomLeft = 0xF4EDDB,
                         .BottomRight = 0xF4EDDB,
                         .Mask = maskSelected,
                         .DropCache = 1});
}

void AddCheckIcon(XDisplayList& records, std::int32_t x, HICON icon, std::uint32_t mask) {
    if (icon)
        records.AddIcon({.Left = x, .Top = middle, .Mask = mask, .SharedIcon = icon});
}
} // namespace

int XValueList::TextWidth(const wchar_t* text, int size, bool bold) {
    const XScreenDc screen;
    XFont font;
    font.Create(screen, nullptr, size, 0, bold);
    return font.Width(screen, text);
}

void XValueList::FillRecords(clValueRow& row, const clValueRowDesc& description) {
    XDisplayList& records = row.Records;
    AddBackground(records, row.Kind);
    if (description.Icon)
        records.AddIcon({.Left = Scale(description.IconX), .Top = middle}, description.Icon);
    AddTextRecords(row, description);
    if (!row.ButtonText.IsEmpty())
        AddButtonRecords(row);
    if (row.Kind == valueCheck || row.Kind == valueRadio)
        AddCheckRecords(row);
    records.AddFrame({.Left = 3,
                      .Top = 2,
                      .Right = anchorFar | anchorBack | 2,
                      .Bottom = anchorFar | anchorBack | 2,
                      .IsFocus = 1,
                      .Mask = maskFocused});
}

void XValueList::AddTextRecords(clValueRow& row, const clValueRowDesc& description) {
    const bool isChecked = row.Kind == valueCheck || row.Kind == valueRadio; // texts set when painted
    const std::int32_t size = Scale(description.CaptionSize ? description.CaptionSize : CaptionSize);
    row.Records.AddText({.Left = row.CaptionX,
                         .Top = middle,
                         .Text = isChecked ? XString() : row.Caption,
                         .Colour = description.CaptionColour,
                         .Bold = description.CaptionBold,
                         .Italic = description.CaptionItalic,
                         .Underline = description.CaptionUnderline,
                         .Size = size,
                         .MaxWidth = row.Value.IsEmpty() || isChecked ? 0 : CaptionRoom(row),
                         .Mask = maskCaptionShown});
    if (row.Kind == valueSection) {
        const int captionWidth = TextWidth(row.Caption, size, description.CaptionBold);
        row.Records.AddGradient({.Left = captionWidth + row.CaptionX + 4,
                                 .Top = anchorHalf,
                                 .Right = anchorFar | anchorBack | 4,
                                 .Bottom = anchorHalf | 1,
                                 .TopLeft = 0x808080,
                                 .TopRight = white,
                                 .BottomLeft = 0x808080,
                                 .BottomRight = white});
    }
    const bool isLink = row.Kind == valueLink;
    row.Records.AddText({.Left = row.ValueX,
                         .Top = middle,
                         .Text = isChecked ? XString() : row.Value,
                         .Colour = isLink ? 0xFF0000 : description.ValueColour,
                         .Underline = isLink,
                         .Size = Scale(ValueSize),
                         .Mask = maskValueShown});
}

void XValueList::AddButtonRecords(clValueRow& row) {
    clDLText text{.Left = anchorFar | anchorEnd | anchorBack | 4,
                  .Top = middle,
                  .Text = ButtonCaption(row),
                  .Size = Scale(ValueSize)};
    if (row.ValueWidth)
        text.Left = row.ValueWidth + row.ValueX + anchorEnd;
    text.Mask = maskEnabled | maskNotSelected; // the real button covers it on the selected row
    row.Records.AddText(text);
    text.Mask = maskDisabled;
    text.Colour = disabledColour;
    row.Records.AddText(text);
}

void XValueList::AddCheckRecords(clValueRow& row) {
    const bool isCheck = row.Kind == valueCheck;
    const HICON on = isCheck ? CheckOn.Get() : RadioOn.Get();
    const HICON off = isCheck ? CheckOff.Get() : RadioOff.Get();
    const HICON onDisabled = isCheck ? CheckOnDisabled.Get() : RadioOnDisabled.Get();
    const HICON offDisabled = isCheck ? CheckOffDisabled.Get() : RadioOffDisabled.Get();
    AddCheckIcon(row.Records, row.IconX, on, onDisabled ? maskEnabled | maskOn : maskOn);
    AddCheckIcon(row.Records, row.IconX, off, offDisabled ? maskEnabled | maskOff : maskOff);
    AddCheckIcon(row.Records, row.IconX, onDisabled, maskDisabled | maskOn);
    AddCheckIcon(row.Records, row.IconX, offDisabled, maskDisabled | maskOff);
}
