// The rows of an owner-drawn combo box and their drawing.
#include "toolkit/XDropList.h"

#include "toolkit/XWindow.h"

#include <algorithm>

namespace {

constexpr std::uint32_t rowSelected = 4, rowUnselected = 8;
constexpr std::uint32_t rowFocused = 64, rowUnfocused = 128;
constexpr std::uint32_t rowInList = 256; // not in the closed box

constexpr int textGap = 4; // right of a text that is shortened

constexpr COLORREF pale = 0xC0C0C0; // separators, and texts of a disabled control

} // namespace

void XDropList::OnTextChanged(const XString&) {}

void XDropList::OnChanging() {}

void XDropList::OnOpening() {}

void XDropList::OnClosing() {}

bool XDropList::Attach(HWND combo, bool subclassEdit) {
    Detach();
    Rows.Clear();
    Current = nullptr;
    Combo = Edit = nullptr;
    ControlId = 0;
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    if (!combo || !GetComboBoxInfo(combo, &info))
        return false;
    Combo = combo;
    ControlId = GetDlgCtrlID(combo);
    if ((GetWindowLongPtrW(combo, GWL_STYLE) & 3) != CBS_DROPDOWNLIST)
        Edit = info.hwndItem;
    SendMessageW(combo, CB_RESETCONTENT, 0, 0);
    // The dialog asked for the heights while it made the control, before anybody could answer.
    SendMessageW(combo, CB_SETITEMHEIGHT, 0, Scaled(RowHeight));
    SendMessageW(combo, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), Scaled(RowHeight));
    if (subclassEdit)
        XSubClassCtrl::Attach(Edit);
    return true;
}

int XDropList::AddRow(const wchar_t* text, HICON icon, int position, COLORREF colour) {
    const auto shown = reinterpret_cast<LPARAM>(text ? text : L"");
    const LRESULT index = !Combo ? CB_ERR
                          : position < 0
                              ? SendMessageW(Combo, CB_ADDSTRING, 0, shown)
                              : SendMessageW(Combo, CB_INSERTSTRING, static_cast<WPARAM>(position), shown);
    if (index < 0)
        return -1;
    auto* row = new clDropRow;
    row->Text = text;
    Build(*row, icon, colour);
    Rows.InsertAt(index, row);
    return static_cast<int>(index);
}

void XDropList::RemoveRow(int index) {
    if (index < 0 || index >= Rows.Count())
        return;
    SendMessageW(Combo, CB_DELETESTRING, static_cast<WPARAM>(index), 0);
    Rows.DeleteAt(index);
    Current = nullptr;
}

void XDropList::Clear() {
    SendMessageW(Combo, CB_RESETCONTENT, 0, 0);
    Rows.Clear();
    Current = nullptr;
}

void XDropList::AddSeparator() {
    if (Rows.IsEmpty())
        return;
    constexpr std::int32_t bottom = anchorFar | anchorBack | 1;
    Rows[Rows.Count() - 1].Records.AddLine(
        {.Colour = pale, .Left = 0, .Top = bottom, .Right = anchorFar, .Bottom = bottom, .Mask = rowInList});
}

int XDropList::SelectByText(const wchar_t* text) {
    std::int64_t exact = -1, folded = -1;
    for (std::int64_t i = Rows.Count() - 1; i >= 0; --i) {
        if (Rows[i].Text.Equals(text))
            exact = i;
        if (Rows[i].Text.EqualsNoCase(text))
            folded = i;
    }
    const int index = static_cast<int>(exact >= 0 ? exact : folded);
    SendMessageW(Combo, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    return index;
}

int XDropList::Selected() const {
    const LRESULT index = Combo ? SendMessageW(Combo, CB_GETCURSEL, 0, 0) : CB_ERR;
    return index >= 0 && index < Rows.Count() ? static_cast<int>(index) : -1;
}

XString XDropList::GetText(bool fromEdit) const {
    if (fromEdit) {
        const int length = GetWindowTextLengthW(Combo);
        XString text;
        text.SetLength(length);
        GetWindowTextW(Combo, text.Buffer(), length + 1);
        text.FitLength();
        return text;
    }
    const int index = Selected();
    return index >= 0 ? Rows[index].Text : XString();
}

LRESULT XDropList::OnParentMessage(HWND, UINT message, WPARAM wParam, LPARAM lParam, std::uint32_t& handled) {
    if (message == WM_MEASUREITEM) {
        auto* measure = reinterpret_cast<MEASUREITEMSTRUCT*>(lParam);
        if (ControlId && measure->CtlType == ODT_COMBOBOX && measure->CtlID == static_cast<UINT>(ControlId)) {
            measure->itemHeight = static_cast<UINT>(Scaled(RowHeight));
            handled = 1;
            return TRUE;
        }
    } else if (message == WM_DRAWITEM) {
        const auto* draw = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        if (Combo && draw->CtlType == ODT_COMBOBOX && draw->hwndItem == Combo) {
            Draw(*draw);
            handled = 1;
            return TRUE;
        }
    } else if (message == WM_COMMAND && Combo && reinterpret_cast<HWND>(lParam) == Combo) {
        handled = OnNotification(HIWORD(wParam));
    }
    return 0;
}

bool XDropList::OnNotification(WORD code) {
    switch (code) {
    case CBN_SELCHANGE:
    case CBN_EDITCHANGE:
        OnChanging();
        OnTextChanged(GetText(code == CBN_EDITCHANGE));
        return true;
    case CBN_DROPDOWN:
        OnOpening();
        return true;
    case CBN_CLOSEUP:
        OnClosing();
        return true;
    default:
        return false;
    }
}

std::uint32_t XDropList::MaskOf(UINT itemState) noexcept {
    return (itemState & ODS_SELECTED ? rowSelected : rowUnselected) |
           (itemState & ODS_FOCUS ? rowFocused : rowUnfocused) |
           (itemState & ODS_COMBOBOXEDIT ? 0 : rowInList);
}

int XDropList::Scaled(int value) const {
    return Pixels ? value : ScaleToDpi(value);
}

COLORREF XDropList::Background() const {
    return RowColour ? RowColour : GetSysColor(COLOR_WINDOW);
}

void XDropList::Build(clDropRow& row, HICON icon, COLORREF colour) const {
    constexpr std::int32_t fromFar = anchorFar | anchorBack, centred = anchorHalf | anchorCentre;
    XDisplayList& list = row.Records;
    list.AddFill({.Right = anchorFar, .Bottom = anchorFar, .Colour = Background()});
    list.AddBox({.Left = 1,
                 .Top = 0,
                 .Right = fromFar | 1,
                 .Bottom = anchorFar,
                 .FillColour = 0xFFFAEE,
                 .PenColour = 0xDDAC84,
                 .Mask = rowSelected,
                 .Radius = 3});
    clDLGradient gradient;
    gradient.Left = 3;
    gradient.Top = 2;
    gradient.Right = fromFar | 3;
    gradient.Bottom = fromFar | 2;
    gradient.TopLeft = gradient.TopRight = 0xFEF4EB;
    gradient.BottomLeft = gradient.BottomRight = 0xFCDBC1;
    gradient.Mask = rowSelected;
    gradient.DropCache = 1; // else each of many rows keeps a bitmap once it was selected
    list.AddGradient(gradient);
    if (icon) {
        clDLIcon record;
        record.Left = 4;
        record.Top = centred;
        list.AddIcon(record, icon);
    }
    list.AddText({.Left = Scaled(TextX),
                  .Top = centred | anchorBack | 1,
                  .Text = row.Text,
                  .Colour = colour,
                  .Size = Scaled(FontSize)});
}

void XDropList::Draw(const DRAWITEMSTRUCT& draw) {
    const int width = draw.rcItem.right - draw.rcItem.left, height = draw.rcItem.bottom - draw.rcItem.top;
    if (Buffer.Width() < width || Buffer.Height() < height)
        Buffer.Create(draw.hDC, std::max(width, Buffer.Width()), std::max(height, Buffer.Height()));
    Current = draw.itemID < Rows.Count() ? Rows.At(draw.itemID) : nullptr;
    XDisplayList empty; // the closed box without a choice
    empty.AddFill({.Right = anchorFar, .Bottom = anchorFar, .Colour = Background()});
    XDisplayList& list = Current ? Current->Records : empty;
    list.FitTo(width, height);
    list.ActiveMask = MaskOf(draw.itemState);
    if (Current)
        list.Texts[0].MaxWidth = std::max(1, width - Scaled(TextX) - Scaled(textGap));
    const bool isPale = Current && (draw.itemState & ODS_DISABLED);
    const std::uint32_t colour = isPale ? list.Texts[0].Colour : 0;
    if (isPale)
        list.Texts[0].Colour = pale;
    list.Paint(Buffer.Dc, 0, 0);
    if (isPale)
        list.Texts[0].Colour = colour;
    Buffer.Blit(draw.hDC, draw.rcItem.left, draw.rcItem.top, width, height);
}
