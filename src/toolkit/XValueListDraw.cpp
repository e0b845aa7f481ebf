// Drawing the rows of a value list: one after another through one off-screen image.
#include "toolkit/XValueList.h"

#include "toolkit/XValueMasks.h"

#include <algorithm>
#include <iterator>

namespace {
void FillWhite(HDC dc, const RECT& rect) {
    FillRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
}

void ExcludeWindow(HDC dc, HWND list, HWND window) {
    RECT rect{};
    if (!window || !GetWindowRect(window, &rect))
        return;
    MapWindowPoints(nullptr, list, reinterpret_cast<POINT*>(&rect), 2);
    ExcludeClipRect(dc, rect.left, rect.top, rect.right, rect.bottom);
}

// The colours of a row's texts, all the same pale one while the row is painted disabled.
class PaleTexts {
public:
    PaleTexts(XDisplayList& records, bool pale) : records(records), pale(pale) {
        if (!pale)
            return;
        for (clDLText& text : records.Texts)
            if (count < std::size(colours)) {
                colours[count++] = text.Colour;
                text.Colour = disabledColour;
            }
    }
    ~PaleTexts() {
        for (std::size_t i = 0; i < count; ++i)
            records.Texts[static_cast<std::int64_t>(i)].Colour = colours[i];
    }
    PaleTexts(const PaleTexts&) = delete;
    PaleTexts& operator=(const PaleTexts&) = delete;

private:
    XDisplayList& records;
    const bool pale;
    std::uint32_t colours[4]{}; // caption, value, the button twice
    std::size_t count = 0;
};

XString FirstLine(const XString& value) {
    const int end = value.FindChar(L'\r');
    if (end == 0)
        return value;
    XString line = value.Left(end - 1);
    return line += L"...";
}
} // namespace

void XValueList::DrawItem(const DRAWITEMSTRUCT& draw) {
    const int width = draw.rcItem.right - draw.rcItem.left;
    const int height = draw.rcItem.bottom - draw.rcItem.top;
    if (width <= 0 || height <= 0)
        return;
    if (Buffer.Width() < width || Buffer.Height() < height)
        Buffer.Create(draw.hDC, std::max(width, Buffer.Width()), std::max(height, Buffer.Height()));
    const int row = draw.itemID < static_cast<UINT>(RowCount()) ? static_cast<int>(draw.itemID) : -1;
    if (row < 0)
        FillWhite(Buffer.Dc, {0, 0, width, height});
    else
        PaintRow(Rows[row], row, draw.itemState, width, height);
    const int saved = SaveDC(draw.hDC);
    ExcludeWindow(draw.hDC, List, Control.Window);
    ExcludeWindow(draw.hDC, List, Control.Button);
    BitBlt(draw.hDC, draw.rcItem.left, draw.rcItem.top, width, height, Buffer.Dc, 0, 0, SRCCOPY);
    RestoreDC(draw.hDC, saved);
}

void XValueList::PaintRow(clValueRow& row, int index, UINT itemState, int width, int height) {
    Current = &row;
    const bool selected = itemState & ODS_SELECTED;
    std::uint32_t mask = selected ? maskSelected : maskNotSelected;
    mask |= itemState & ODS_FOCUS ? maskFocused : maskNotFocused;
    mask |= row.Disabled ? maskDisabled : maskEnabled;
    mask |= maskCaptionShown;
    if (index != Control.Row || !Control.Window)
        mask |= maskValueShown;
    const PaleTexts pale(row.Records, row.Disabled);
    if (row.Kind != valuePlain && row.Records.Texts.Count() >= 2) {
        row.Records.Texts[0].Text = row.Caption;
        if (row.Kind == valueCheck || row.Kind == valueRadio)
            mask |= IsChecked(index) ? maskOn : maskOff;
        else
            SetTexts(row, selected, width);
    }
    row.Records.ActiveMask = mask;
    row.Records.FitTo(width, height);
    row.Records.Paint(Buffer.Dc, 0, 0);
}

void XValueList::SetTexts(clValueRow& row, bool selected, int width) {
    clDLText& value = row.Records.Texts[1];
    value.Text = FirstLine(row.Value);
    // A value may have come since the row was added.
    row.Records.Texts[0].MaxWidth = row.Value.IsEmpty() ? 0 : CaptionRoom(row);
    int room = row.ValueWidth ? row.ValueWidth : width - ResolveCoordinate(row.ValueX, 0, width, 0);
    if (!row.ButtonText.IsEmpty() && !selected)
        room -= TextWidth(ButtonCaption(row), Scale(ValueSize), false) + 7;
    else if (RECT button{}; selected && Control.Button && GetClientRect(Control.Button, &button))
        room -= button.right;           // the value ends at the real button
    value.MaxWidth = std::max(1, room); // 0 would mean no limit
}

void XValueList::EraseBelow(HDC dc) const {
    RECT rest{};
    GetClientRect(List, &rest);
    if (RowCount() > 0)
        rest.top = std::max(rest.top, ItemRect(RowCount() - 1).bottom);
    const int saved = SaveDC(dc);
    ExcludeWindow(dc, List, Control.Window);
    ExcludeWindow(dc, List, Control.Button);
    if (rest.top < rest.bottom)
        FillWhite(dc, rest);
    RestoreDC(dc, saved);
}
