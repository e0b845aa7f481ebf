// The list box of a value list and its rows: adding, moving, selecting and checking them.
#include "toolkit/XValueList.h"

#include <shellapi.h>

#include <algorithm>

namespace {
void OpenByShell(HWND owner, const wchar_t* target) {
    ShellExecuteW(owner, nullptr, target, nullptr, nullptr, SW_SHOWNORMAL);
    MessageBeep(0);
}

XString RowText(const clValueRow& row) {
    XString text = row.Caption;
    if (!row.Caption.IsEmpty() && !row.Value.IsEmpty())
        text += L": ";
    return text += row.Value;
}

// In one direction alone: the other field would have to be a size.
RECT FromDialogUnits(HWND dialog, RECT units) {
    MapDialogRect(dialog, &units);
    return units;
}
} // namespace

XValueList::XValueList() : OpenLink(OpenByShell) {}

XValueList::~XValueList() {
    Clear();
}

void XValueList::OnSelect() {}
void XValueList::OnValueChanged(int) {}
void XValueList::OnContextMenu(int, int) {}
void XValueList::OnDoubleClick(int) {}

std::int32_t XValueList::Scale(std::int32_t value) const {
    if (Pixels)
        return value;
    const std::uint32_t bits = static_cast<std::uint32_t>(value);
    const auto scaled = static_cast<std::uint32_t>(ScaleToDpi(static_cast<int>(bits & 0xFFFF)));
    return static_cast<std::int32_t>((bits & 0xFFFF0000) | (scaled & 0xFFFF));
}

void XValueList::Create(int x, int y, int width, int height, HWND parent, int captionX, int valueX,
                        int rowHeight, bool pixels) {
    Pixels = pixels;
    Parent = parent;
    CaptionX = captionX;
    ValueX = valueX;
    RowHeight = pixels ? rowHeight : ScaleToDpi(rowHeight);
    CaptionSize = 13;
    ValueSize = 13;
    if (!pixels) {
        x = FromDialogUnits(parent, {x, 1, 1, 1}).left;
        y = FromDialogUnits(parent, {1, y, 1, 1}).top;
        width = FromDialogUnits(parent, {1, 1, width, 1}).right;
        height = FromDialogUnits(parent, {1, 1, 1, height}).bottom;
    }
    ControlId = 0;
    creating = true; // the parent is asked for the row height before the list box is known
    List = CreateWindowExW(WS_EX_CLIENTEDGE, L"LISTBOX", nullptr, 0x50210551, x, y, width, height, parent,
                           nullptr, GetModuleHandleW(nullptr), nullptr);
    creating = false;
    if (!List)
        return;
    ControlId = static_cast<std::uint32_t>(reinterpret_cast<ULONG_PTR>(List)) + GetTickCount();
    SetWindowLongW(List, GWL_ID, static_cast<LONG>(ControlId));
    SendMessageW(List, WM_SETFONT, static_cast<WPARAM>(SendMessageW(parent, WM_GETFONT, 0, 0)), 0);
    Attach(List);
}

void XValueList::ReplaceIcon(XIcon& kept, HICON given) {
    // Rows show the icons without a copy of their own, which a list of thousands could not afford.
    for (clValueRow& row : Rows)
        for (clDLIcon& icon : row.Records.Icons)
            if (icon.SharedIcon && icon.SharedIcon == kept.Get())
                icon.SharedIcon = given;
    kept.Reset(given);
}

void XValueList::SetIcons(const clValueIcons& icons) {
    ReplaceIcon(CheckOn, icons.CheckOn);
    ReplaceIcon(CheckOff, icons.CheckOff);
    ReplaceIcon(CheckOnDisabled, icons.CheckOnDisabled);
    ReplaceIcon(CheckOffDisabled, icons.CheckOffDisabled);
    ReplaceIcon(RadioOn, icons.RadioOn);
    ReplaceIcon(RadioOff, icons.RadioOff);
    ReplaceIcon(RadioOnDisabled, icons.RadioOnDisabled);
    ReplaceIcon(RadioOffDisabled, icons.RadioOffDisabled);
    Redraw();
}

void XValueList::AddRow(const clValueRowDesc& description, int position) {
    if (position < -1 || position > RowCount())
        return;
    CloseControl();
    if (position < 0)
        position = RowCount();
    Current = new clValueRow;
    Rows.InsertAt(position, Current);
    Current->Kind = description.Kind;
    Current->Caption = description.Caption;
    Current->Value = description.Value;
    Current->Disabled = description.Disabled;
    Current->Choices.CopyFrom(description.Choices);
    Current->Lines = description.Lines;
    Current->ButtonText = description.ButtonText;
    Current->OnButton = description.OnButton;
    Current->OnChange = description.OnChange;
    Current->UserData = description.UserData;
    Current->CaptionX = Scale(description.CaptionX ? description.CaptionX : CaptionX);
    Current->IconX = Scale(description.CheckX ? description.CheckX : CaptionX);
    Current->ValueX = Scale(description.ValueX ? description.ValueX : ValueX);
    Current->ValueWidth = Scale(description.ValueWidth);
    FillRecords(*Current, description);
    const XString* text = RowTexts.InsertString(position, RowText(*Current));
    SendMessageW(List, LB_INSERTSTRING, static_cast<WPARAM>(position),
                 reinterpret_cast<LPARAM>(text->Text()));
}

void XValueList::RemoveRow(int row) {
    if (!IsRow(row))
        return;
    const bool selected = row == SelectedRow();
    if (selected || row == Control.Row)
        CloseControl();
    Current = nullptr;
    SendMessageW(List, LB_DELETESTRING, static_cast<WPARAM>(row), 0);
    Rows.DeleteAt(row);
    RowTexts.DeleteAt(row);
    if (selected)
        SelectRow(row);
    else if (Control.Row > row) {
        --Control.Row;
        Control.MoveWithRow();
    }
}

void XValueList::Clear() {
    CloseControl();
    Current = nullptr;
    if (List)
        SendMessageW(List, LB_RESETCONTENT, 0, 0);
    Rows.Clear();
    RowTexts.Clear();
}

void XValueList::MoveRow(int from, int to) {
    const int count = RowCount();
    if (!IsRow(from) || to < 0 || from == to || (from == count - 1 && to >= count))
        return;
    to = std::min(to, count);
    CloseControl();
    clValueRow* row = Rows.RemoveAt(from);
    XString* text = RowTexts.RemoveAt(from);
    if (from > to)
        SendMessageW(List, LB_DELETESTRING, static_cast<WPARAM>(from), 0);
    SendMessageW(List, LB_INSERTSTRING, static_cast<WPARAM>(to), reinterpret_cast<LPARAM>(text->Text()));
    if (from < to)
        SendMessageW(List, LB_DELETESTRING, static_cast<WPARAM>(from), 0);
    const int place = from < to ? to - 1 : to;
    Rows.InsertAt(place, row);
    RowTexts.InsertAt(place, text);
}

int XValueList::SelectedRow() const {
    if (!List)
        return -1;
    const LRESULT row = SendMessageW(List, LB_GETCURSEL, 0, 0);
    return row >= 0 && row < Rows.Count() ? static_cast<int>(row) : -1;
}

void XValueList::SelectRow(int row) {
    if (row < -1 || row >= RowCount())
        return;
    SendMessageW(List, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
    Control.Renew();
}

bool XValueList::IsChecked(int row) const {
    if (!IsRow(row))
        return false;
    const std::int64_t number = Rows[row].Value.ToInt();
    switch (Rows[row].Kind) {
    case valueCheck:
        return number != 0;
    case valueRadio:
        return number < 0;
    default:
        return false;
    }
}

void XValueList::SetChecked(int row, bool on) {
    if (!IsRow(row))
        return;
    Current = Rows.At(row);
    if (Current->Kind == valueCheck) {
        Current->Value = on ? L"1" : L"";
    } else if (Current->Kind == valueRadio) {
        const std::int64_t number = Current->Value.ToInt();
        const std::int64_t group = number < 0 ? -number : number;
        if (on)
            for (clValueRow& other : Rows)
                if (other.Kind == valueRadio && other.Value.ToInt() == -group)
                    other.Value.FromInt(group);
        if (on || number < 0)
            Current->Value.FromInt(on ? -group : group);
    } else {
        return;
    }
    Redraw();
}

void XValueList::PressRow(int row) {
    if (!IsRow(row) || Rows[row].Disabled)
        return;
    SetChecked(row, Rows[row].Kind == valueRadio || !IsChecked(row));
    if (const XValueCallback changed = Rows[row].OnChange)
        changed(*this, row);
}

RECT XValueList::ItemRect(int row) const {
    RECT rect{};
    SendMessageW(List, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&rect));
    return rect;
}

int XValueList::RowAtCursor() const {
    POINT cursor{};
    GetCursorPos(&cursor);
    const HWND window = WindowFromPoint(cursor);
    if (!List || (window != List && !IsChild(List, window)) || Rows.IsEmpty())
        return -1;
    ScreenToClient(List, &cursor);
    const int height = std::max(1, static_cast<int>(SendMessageW(List, LB_GETITEMHEIGHT, 0, 0)));
    const int top = static_cast<int>(SendMessageW(List, LB_GETTOPINDEX, 0, 0));
    return std::clamp(static_cast<int>(cursor.y) / height + top, 0, RowCount() - 1);
}

void XValueList::Redraw() {
    if (List)
        InvalidateRect(List, nullptr, FALSE);
    Control.Invalidate();
}

void XValueList::CloseControl() {
    const int row = Control.Row;
    if (Control.Close() > 0)
        OnValueChanged(row); // NOLINT(clang-analyzer-optin.cplusplus.VirtualCall): at the end, no one is told
}

XValueListFill::XValueListFill(XValueList& list) : list(list) {
    SendMessageW(list.List, WM_SETREDRAW, FALSE, 0);
}

XValueListFill::~XValueListFill() {
    SendMessageW(list.List, WM_SETREDRAW, TRUE, 0);
    list.Redraw();
}
