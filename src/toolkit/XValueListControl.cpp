// The edit field, combo box and button over the selected row of a value list.
#include "toolkit/XValueList.h"

#include "toolkit/EditCompletion.h"
#include "toolkit/PrefixCompletion.h"

#include <utility>

namespace {
constexpr int controlHeight = 21;    // at 96 dpi
constexpr int dropHeight = 200;      // of a combo box with its list
constexpr int buttonTextHeight = 12; // at 96 dpi
constexpr int buttonMargins = 20;

bool IsShiftDown() {
    return GetKeyState(VK_SHIFT) < 0;
}

bool HasFreeText(const clValueRow& row) {
    return row.Kind == valueEdit || row.Kind == valueCombo;
}

XString WindowText(HWND window) {
    XString text;
    text.SetLength(GetWindowTextLengthW(window));
    GetWindowTextW(window, text.Buffer(), text.Count() + 1);
    text.FitLength();
    return text;
}

// The entry chosen in a combo box; false if there is none.
bool ReadChoice(HWND combo, XString& text) {
    const LRESULT entry = SendMessageW(combo, CB_GETCURSEL, 0, 0);
    if (entry < 0)
        return false;
    const LRESULT length = SendMessageW(combo, CB_GETLBTEXTLEN, static_cast<WPARAM>(entry), 0);
    if (length < 0)
        return false;
    text.SetLength(static_cast<int>(length));
    SendMessageW(combo, CB_GETLBTEXT, static_cast<WPARAM>(entry), reinterpret_cast<LPARAM>(text.Buffer()));
    text.FitLength();
    return true;
}

void FillChoices(HWND combo, const clValueRow& row) {
    int chosen = 0;
    for (std::int64_t i = 0; i < row.Choices.Count(); ++i) {
        SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row.Choices[i].Text()));
        if (chosen == 0 && row.Choices[i].EqualsNoCase(row.Value))
            chosen = static_cast<int>(i);
    }
    if (row.Kind == valueDropList)
        SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(chosen), 0);
}

HWND CreateIn(HWND list, const wchar_t* className, const wchar_t* text, DWORD extendedStyle, DWORD style,
              const RECT& place, HWND fontSource) {
    const HWND window = CreateWindowExW(extendedStyle, className, text, style, place.left, place.top,
                                        place.right - place.left, place.bottom - place.top, list, nullptr,
                                        GetModuleHandleW(nullptr), nullptr);
    SendMessageW(window, WM_SETFONT, static_cast<WPARAM>(SendMessageW(fontSource, WM_GETFONT, 0, 0)), 0);
    return window;
}

void Move(HWND window, const RECT& place) {
    if (window)
        SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left,
                     place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
}
} // namespace

void XValueList::clValueControl::Renew() {
    list.CloseControl();
    const int selected = list.SelectedRow();
    if (selected < 0)
        return;
    const clValueRow& row = list.Rows[selected];
    const bool hasWindow = row.Kind >= valueEdit && row.Kind <= valueDropList;
    if (row.Disabled || (!hasWindow && row.ButtonText.IsEmpty()))
        return;
    Row = selected;
    const Places places = FindPlaces(row);
    if (!row.ButtonText.IsEmpty())
        OpenButton(row, places.button);
    if (hasWindow)
        OpenWindow(row, places.window);
}

XValueList::clValueControl::Places XValueList::clValueControl::FindPlaces(const clValueRow& row) const {
    const RECT item = list.ItemRect(Row);
    const int itemWidth = item.right - item.left;
    const int height = list.Pixels ? controlHeight : ScaleToDpi(controlHeight);
    const int top = item.top + (item.bottom - item.top - height) / 2;
    const int valueX = ResolveCoordinate(row.ValueX, 0, itemWidth, 0);
    const int x = valueX - 5;
    int width = row.ValueWidth ? row.ValueWidth : itemWidth - x - 1;
    Places places{};
    if (!row.ButtonText.IsEmpty()) {
        const int buttonWidth =
            list.TextWidth(row.ButtonText, ScaleToDpi(buttonTextHeight), false) + buttonMargins;
        width -= buttonWidth;
        const int right = row.ValueWidth ? valueX + row.ValueWidth : itemWidth;
        places.button = {item.left + right - buttonWidth, top, item.left + right, top + height};
    }
    places.window = {item.left + x, top, item.left + x + width, top + height};
    if (row.Kind == valueEdit && row.Lines > 1) {
        RECT client{};
        GetClientRect(list.List, &client);
        const int tall = row.Lines * height;
        if (top + tall > client.bottom)
            places.window.top = places.window.bottom - tall;
        else
            places.window.bottom = top + tall;
    } else if (row.Kind != valueEdit) {
        places.window.bottom = top + dropHeight;
    }
    return places;
}

void XValueList::clValueControl::OpenWindow(const clValueRow& row, const RECT& place) {
    HWND window = nullptr;
    if (row.Kind == valueEdit) {
        const DWORD style = row.Lines > 1 ? 0x50010080 | 0x201044 : 0x50010080;
        window = CreateIn(list.List, L"EDIT", row.Value, WS_EX_CLIENTEDGE, style, place, list.Parent);
    } else {
        const DWORD style = row.Kind == valueCombo ? 0x50210042 : 0x50210003;
        window = CreateIn(list.List, L"COMBOBOX", L"", 0, style, place, list.Parent);
        FillChoices(window, row);
        if (row.Kind == valueCombo)
            SetWindowTextW(window, row.Value);
    }
    if (!window)
        return;
    Window = window;
    SendMessageW(InnerEdit(), EM_SETSEL, 0, -1);
    Attach(InnerEdit());
    SetFocus(window);
}

void XValueList::clValueControl::OpenButton(const clValueRow& row, const RECT& place) {
    Button = CreateIn(list.List, L"BUTTON", row.ButtonText, 0, WS_CHILD | WS_VISIBLE, place, list.Parent);
    buttonKeys.Attach(Button);
}

HWND XValueList::clValueControl::InnerEdit() const {
    const bool isCombo = list.IsRow(Row) && list.Rows[Row].Kind == valueCombo;
    const HWND inner = isCombo ? GetWindow(Window, GW_CHILD) : nullptr;
    return inner ? inner : Window;
}

int XValueList::clValueControl::Commit() {
    if (!Window || !list.IsRow(Row))
        return 0;
    clValueRow& row = list.Rows[Row];
    if (HasFreeText(row))
        row.Value = WindowText(Window);
    else
        ReadChoice(Window, row.Value);
    return 0; // OnChange has told of each change while it was made
}

void XValueList::clValueControl::TakeChoice() {
    // The edit of the combo box shows it only after this notification.
    if (Window && list.IsRow(Row))
        ReadChoice(Window, list.Rows[Row].Value);
}

int XValueList::clValueControl::Close() {
    if (Row < 0)
        return 0;
    const int changes = Commit();
    Row = -1;
    // The windows send more messages while they end: they are not to find themselves here.
    const HWND window = std::exchange(Window, nullptr);
    const HWND button = std::exchange(Button, nullptr);
    if (const HWND focus = GetFocus(); focus && IsChild(list.List, focus))
        SetFocus(list.List);
    Detach();
    buttonKeys.Detach();
    if (window)
        DestroyWindow(window);
    if (button)
        DestroyWindow(button);
    return changes;
}

void XValueList::clValueControl::Invalidate() {
    if (Window)
        InvalidateRect(Window, nullptr, FALSE);
    if (Button)
        InvalidateRect(Button, nullptr, FALSE);
}

void XValueList::clValueControl::MoveWithRow() {
    if (!list.IsRow(Row))
        return;
    const Places places = FindPlaces(list.Rows[Row]);
    Move(Window, places.window);
    Move(Button, places.button);
}

LRESULT XValueList::clValueControl::OnMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                                              std::uint32_t& handled) {
    switch (message) {
    case WM_GETDLGCODE:
        handled = 1;
        return DLGC_WANTALLKEYS;
    case WM_MOUSEWHEEL:
        PostMessageW(list.List, message, wParam, lParam);
        handled = 1;
        return 0;
    case WM_KEYDOWN:
    case WM_KEYUP:
        if (wParam == VK_TAB) {
            PostMessageW(list.List, message, wParam, lParam);
            handled = 1;
        } else if (list.IsRow(Row)) {
            handled = message == WM_KEYDOWN ? OnKeyDown(wParam) : OnKeyUp(wParam);
        }
        return 0;
    case WM_CHAR:
        handled = wParam == VK_TAB;
        return 0;
    case WM_KILLFOCUS:
        if (list.IsRow(Row) && list.Rows[Row].Kind == valueCombo)
            DropSuggestedTail(hwnd);
        return 0;
    case WM_NCDESTROY: // with the list's parent
        Detach();
        return 0;
    default:
        return 0;
    }
}

bool XValueList::clValueControl::OnKeyDown(WPARAM key) {
    if (key != VK_UP && key != VK_DOWN)
        return false;
    const clValueRow& row = list.Rows[Row];
    if (row.Kind != valueEdit && SendMessageW(Window, CB_GETDROPPEDSTATE, 0, 0))
        return false; // the open list takes the arrows
    if (row.Kind == valueEdit && row.Lines != 0) {
        DWORD start = 0;
        DWORD end = 0;
        SendMessageW(Window, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        const LRESULT line = SendMessageW(Window, EM_LINEFROMCHAR, static_cast<WPARAM>(-1), 0);
        const LRESULT lastLine = SendMessageW(Window, EM_GETLINECOUNT, 0, 0) - 1;
        if (start != end || line != (key == VK_UP ? 0 : lastLine))
            return false;
    }
    if (const int target = Row + (key == VK_UP ? -1 : 1); list.IsRow(target))
        list.SelectRow(target);
    return true;
}

bool XValueList::clValueControl::OnKeyUp(WPARAM key) {
    const clValueRow& row = list.Rows[Row];
    if (key == VK_RETURN && row.Lines == 0) {
        list.CloseControl();
        SetFocus(list.List);
        return true;
    }
    if (row.Kind == valueCombo && IsCompletingKey(key)) {
        const XString typed = TypedText(InnerEdit());
        const std::int64_t choice = FindCompletion(typed, row.Choices.Count(),
                                                   [&row](std::int64_t i) { return row.Choices[i].Text(); });
        if (choice >= 0)
            SuggestTail(Window, typed, row.Choices[choice]);
    }
    return false;
}

LRESULT XValueList::clValueControl::_Button::OnMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                                                       std::uint32_t& handled) {
    const bool isArrow = wParam == VK_UP || wParam == VK_DOWN;
    const bool isOurs = isArrow || wParam == VK_TAB || wParam == VK_RETURN;
    if (message == WM_NCDESTROY)
        Detach();
    if (message == WM_GETDLGCODE && isOurs) {
        handled = 1; // a dialog would press its own button, or go to another control
        return DLGC_BUTTON | DLGC_WANTALLKEYS;
    }
    if (message != WM_KEYDOWN || !isOurs)
        return 0;
    handled = 1;
    if (isArrow)
        list.SelectRow(list.Control.Row + (wParam == VK_UP ? -1 : 1));
    else if (wParam == VK_RETURN)
        PostMessageW(hwnd, BM_CLICK, 0, 0);
    else if (IsShiftDown())
        SetFocus(list.Control.Window ? list.Control.Window : list.List);
    else
        PostMessageW(list.List, message, wParam, lParam);
    return 0;
}
