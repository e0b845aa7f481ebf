// Showing the dialog of naming templates, its example and its list.
#include "forms/setup/dlgNaming.h"

#include "naming/NamingHelp.h"
#include "resources/ids.h"
#include "toolkit/XResizeLayout.h"

#include <algorithm>

namespace {

constexpr int longestTemplate = 9999; // characters
constexpr int longestPath = 32767;    // that the system takes in any form

// The list, in dialog units; its columns and rows in pixels at 96 dpi.
constexpr int listX = 7;
constexpr int listY = 59;
constexpr int listWidth = 374;
constexpr int listHeight = 239;
constexpr int captionX = 6;
constexpr int descriptionX = 200;
constexpr int rowHeight = 21;
constexpr int rowMargin = 6;
constexpr COLORREF descriptionColour = 0x808080;

struct Label {
    int x, y; // dialog units
    const wchar_t* text;
};
constexpr Label labels[] = {
    {7, 9, L"Naming"},
    {7, 28, L"Example"},
    {7, 47, L"Elements  (click to add to Naming):"},
};

XString ReadText(HWND edit, int longest) {
    XString text;
    text.SetLength(longest);
    GetWindowTextW(edit, text.Buffer(), longest + 1);
    text.FitLength();
    return text;
}

} // namespace

dlgNaming::dlgNaming(HWND parent, XString& edited) : naming(edited) {
    result = static_cast<int>(ShowModal(ID_DIALOG_NAMING, parent));
    if (result == IDOK)
        edited = naming;
}

dlgNaming::~dlgNaming() {
    Destroy();
}

void dlgNaming::OnInit() {
    SetBackground();
    const HWND edit = Control(ID_NAMING_TEMPLATE);
    SendMessageW(edit, EM_SETLIMITTEXT, longestTemplate, 0);
    SetWindowTextW(edit, naming);
    elements.Create(listX, listY, listWidth, listHeight, Hwnd, captionX, descriptionX, rowHeight);
    // The Tab key follows the order of the windows.
    SetWindowPos(elements.List, Control(ID_NAMING_EXAMPLE), 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    FillElementList();
    ShowWindow(Hwnd, SW_SHOW);
    UpdateExample();
}

void dlgNaming::OnDestroy() {
    elements.Clear();
    background.Free();
    Handled = 0;
}

void dlgNaming::SetBackground() {
    RECT client{};
    GetClientRect(Hwnd, &client);
    background.Create(nullptr, client.right, client.bottom);
    FillRect(background.Dc, &client, GetSysColorBrush(COLOR_3DFACE));
}

void dlgNaming::FillElementList() {
    const XValueListFill fill(elements);
    for (std::size_t i = 0; i < NamingRowCount(); ++i) {
        const clNamingRow& row = NamingRowAt(i);
        clValueRowDesc description;
        description.Kind = row.form ? valuePlain : valueSection;
        description.Caption = row.form ? row.form : row.description;
        if (row.form)
            description.Value = row.description;
        description.ValueColour = descriptionColour;
        elements.AddRow(description);
    }
    // Plain rows don't shorten their value by themselves.
    RECT item{};
    SendMessageW(elements.List, LB_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&item));
    for (clValueRow& row : elements.Rows)
        if (row.Kind == valuePlain)
            row.Records.Texts[1].MaxWidth =
                std::max(1, static_cast<int>(item.right - item.left) - row.ValueX - ScaleToDpi(rowMargin));
}

void dlgNaming::OnEraseBackground(HDC dc) {
    background.Blit(dc, 0, 0);
    const int saved = SaveDC(dc);
    SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessageW(Hwnd, WM_GETFONT, 0, 0)));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
    for (const Label& label : labels)
        TextOutW(dc, DialogX(Hwnd, label.x), DialogY(Hwnd, label.y), label.text, TextLength(label.text));
    RestoreDC(dc, saved);
}

LRESULT dlgNaming::PreMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, std::uint32_t& handled) {
    const LRESULT answer = elements.OnParentMessage(hwnd, message, wParam, lParam, handled);
    if (handled)
        return answer;
    if (message == WM_COMMAND && wParam == MAKEWPARAM(ID_NAMING_TEMPLATE, EN_CHANGE)) {
        UpdateExample();
        handled = 1;
    } else if (message == WM_SYSCOLORCHANGE) {
        SetBackground();
        InvalidateRect(Hwnd, nullptr, TRUE);
    }
    return 0;
}

void dlgNaming::UpdateExample() {
    const HWND edit = Control(ID_NAMING_TEMPLATE);
    const XString text = ReadText(edit, static_cast<int>(SendMessageW(edit, WM_GETTEXTLENGTH, 0, 0)));
    XString example = NamingExample(text);
    if (example.Count() > longestPath) // an edit field takes seconds for a million characters
        example.SetLength(longestPath);
    SetTextIfChanged(Control(ID_NAMING_EXAMPLE), shownExample, example);
}

// Always at the end, wherever the caret stood.
void dlgNaming::OnElementClick() {
    const int selected = elements.SelectedRow();
    if (selected < 0)
        return;
    const clValueRow& row = elements.Rows[selected];
    if (row.Kind != valuePlain || row.Caption.IsEmpty())
        return;
    const HWND edit = Control(ID_NAMING_TEMPLATE);
    XString text = ReadText(edit, longestTemplate);
    text += row.Caption;
    SetWindowTextW(edit, text);
    SetFocus(edit);
    SendMessageW(edit, CB_SETEDITSEL, 0, -1); // edit fields pay no heed to it
    SendMessageW(edit, EM_SETSEL, static_cast<WPARAM>(text.Count()), text.Count());
    UpdateExample();
}

void dlgNaming::_ValueList::OnSelect() {
    if (!isTyping)
        form.OnElementClick();
}

// Its first click has added the row; the list box may have taken the focus back since.
void dlgNaming::_ValueList::OnDoubleClick(int) {
    SetFocus(form.Control(ID_NAMING_TEMPLATE));
}

// From the keyboard a row is chosen by arrows, pages and letters, and added by a blank.
LRESULT dlgNaming::_ValueList::OnMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                                         std::uint32_t& handled) {
    if (message == WM_KEYDOWN && wParam == VK_SPACE) {
        form.OnElementClick();
        handled = 1;
        return 0;
    }
    if (message == WM_CHAR) {
        handled = 1;
        if (wParam == L' ')
            return 0;
        isTyping = true;
        const LRESULT result = CallWindowProcW(OldProc, hwnd, message, wParam, lParam);
        isTyping = false;
        return result;
    }
    return XValueList::OnMessage(hwnd, message, wParam, lParam, handled);
}

void dlgNaming::OnOK() {
    naming = ReadText(Control(ID_NAMING_TEMPLATE), longestTemplate);
    if (!TellsFilesApart(naming)) {
        MessageBoxW(Hwnd,
                    L"Naming has to be formed using dynamic items (such as [title] or [track]) otherwise "
                    L"every track will have the same filename.",
                    L"Zephtone", MB_ICONINFORMATION);
        return;
    }
    EndDialog(Hwnd, IDOK);
}

void dlgNaming::OnCancel() {
    EndDialog(Hwnd, 0);
}

void dlgNaming::OnClose() {
    EndDialog(Hwnd, 0);
}
