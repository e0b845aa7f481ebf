// Showing the overwrite form, its layout, and taking over what the user decided.
#include "forms/review/frmOverwrite.h"

#include "forms/review/FileRows.h"
#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"
#include "resources/ids.h"

#include <algorithm>

namespace {

// Dialog units
constexpr int listWidthLess = 14;
constexpr int listHeightLess = 44;
constexpr int buttonRow = 19;
constexpr int iconX = 8;
constexpr int hintX = 24;
constexpr int hintRow = 18;
constexpr int hintHeight = 8;
constexpr int betweenControls = 4;
constexpr int overwriteX = 57; // from the right
constexpr int noToAllX = 112;
constexpr int cancelX = 167;
constexpr int smallestListHeight = 40;

constexpr int widthForHint = 620; // pixels at 96 dots per inch, as the next
constexpr int besidePath = 60;    // check box, icon and scroll bar
constexpr DWORD uncheckedMs = 500;
constexpr DWORD listStyle = LVS_EX_LABELTIP | LVS_EX_FULLROWSELECT | LVS_EX_CHECKBOXES;
static_assert(listStyle == 0x4024);
constexpr UINT pictureFlags = LR_LOADMAP3DCOLORS | LR_LOADTRANSPARENT;
static_assert(pictureFlags == 0x1020);

// The dot of a folder begins no extension.
XString WithoutExtension(const XString& path) {
    return NameOf(path).FindChar(L'.') ? StripExtension(path) : path;
}

int DesktopWidth() {
    RECT desktop{};
    GetClientRect(GetDesktopWindow(), &desktop);
    return desktop.right;
}

} // namespace

frmOverwrite::frmOverwrite(int& result, HWND parent, XArray<clOverwriteItem>& rows, const wchar_t* codecName)
    : Rows(rows), CodecName(codecName) {
    // What is cut off for showing, so that it comes back whole.
    if (!Rows.IsEmpty())
        Extension = Rows[0].path.From(WithoutExtension(Rows[0].path).Count() + 1);
    result = ShowModal(ID_DIALOG_OVERWRITE, parent) == 1;
}

frmOverwrite::~frmOverwrite() {
    Destroy();
}

void frmOverwrite::OnInit() {
    List.List = Control(ID_OVERWRITE_LIST);
    List.Attach(List.List);
    SendMessageW(List.List, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, listStyle);
    List.UseShellIcons();
    RenameIcon = ShowSmallIcon(*this, ID_RENAME_ICON, ID_ICON_OVERWRITE);
    CornerIcon = ShowSmallIcon(*this, ID_RESIZE_CORNER, ID_ICON_CORNER);
    Picture.Reset(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(ID_BITMAP_REVIEW), IMAGE_BITMAP, 0,
                             0, pictureFlags));
    SendMessageW(Control(ID_OVERWRITE_PICTURE), STM_SETIMAGE, IMAGE_BITMAP,
                 reinterpret_cast<LPARAM>(Picture.Get()));
}

// Comes again when the owner is restored from the task bar.
void frmOverwrite::OnShow(LPARAM) {
    if (isFilled)
        return;
    GrowToPaths();
    isFilled = true;
    RECT client{};
    GetClientRect(Hwnd, &client);
    Layout(client.right, client.bottom);
    FillList();
}

// Wider than made, if the longest path needs it and the screen has it.
void frmOverwrite::GrowToPaths() {
    const clOverwriteItem* longest = nullptr;
    for (const clOverwriteItem& item : Rows)
        if (!longest || item.path.Count() > longest->path.Count())
            longest = &item;
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    if (!longest || !GetMonitorInfoW(MonitorFromWindow(Hwnd, MONITOR_DEFAULTTONEAREST), &screen))
        return;
    RECT window{}, client{};
    GetWindowRect(Hwnd, &window);
    GetClientRect(Hwnd, &client);
    const int wanted = ListView_GetStringWidth(List.List, WithoutExtension(longest->path).Text()) +
                       ScaleToDpi(besidePath) + DialogX(Hwnd, listWidthLess);
    const int most = (screen.rcWork.right - screen.rcWork.left) * 9 / 10 - (window.right - window.left);
    const int more = std::min<int>(wanted - client.right, most);
    if (more > 0)
        MoveTo(window.left - more / 2, keepPosition, window.right - window.left + more, keepPosition);
}

// The column is as wide as the screen, so that no path is cut at any size of the form.
void frmOverwrite::FillList() {
    const int image = ShellIconIndex(Extension, 0);
    const XListUpdate update(List);
    ListView_DeleteAllItems(List.List);
    List.AddColumn(L"Destination File", DesktopWidth(), LVCFMT_LEFT);
    ListView_SetItemCount(List.List, static_cast<int>(Rows.Count()));
    int row = 0;
    for (const clOverwriteItem& item : Rows)
        List.InsertRow(row++, WithoutExtension(item.path), image);
    List.SetChecked(-1, true);
}

void frmOverwrite::OnSize(int width, int height, WPARAM how) {
    if (how == SIZE_MINIMIZED || !isFilled)
        return;
    const XLayoutScope scope(Hwnd);
    Layout(width, height);
}

void frmOverwrite::Layout(int width, int height) {
    const int hint = width < ScaleToDpi(widthForHint) ? SW_HIDE : SW_SHOW;
    ShowWindow(Control(ID_RENAME_ICON), hint);
    ShowWindow(Control(ID_RENAME_HINT), hint);
    corner.Place(width, height);
    SizeControl(List.List, width - DialogX(Hwnd, listWidthLess), height - DialogY(Hwnd, listHeightLess));
    const int row = height - DialogY(Hwnd, buttonRow);
    MoveControl(Control(ID_RENAME_ICON), DialogX(Hwnd, iconX), row);
    MoveControl(Control(ID_RENAME_HINT), DialogX(Hwnd, hintX), height - DialogY(Hwnd, hintRow));
    SizeControl(Control(ID_RENAME_HINT), width - DialogX(Hwnd, cancelX + betweenControls + hintX),
                DialogY(Hwnd, hintHeight));
    MoveControl(Control(IDOK), width - DialogX(Hwnd, overwriteX), row);
    MoveControl(Control(ID_NO_TO_ALL), width - DialogX(Hwnd, noToAllX), row);
    MoveControl(Control(IDCANCEL), width - DialogX(Hwnd, cancelX), row);
}

// The three buttons and a few rows stay in sight.
void frmOverwrite::LimitSize(MINMAXINFO& limits) const {
    RECT window{0, 0, DialogX(Hwnd, cancelX + iconX), DialogY(Hwnd, smallestListHeight + listHeightLess)};
    AdjustWindowRectEx(&window, static_cast<DWORD>(GetWindowLongPtrW(Hwnd, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrW(Hwnd, GWL_EXSTYLE)));
    limits.ptMinTrackSize = {window.right - window.left, window.bottom - window.top};
}

void frmOverwrite::_lstView::OnContextMenu(int x, int y, HWND) {
    switch (TrackRowMenu(Owner.Menu, *this, Owner.Hwnd, x, y)) {
    case ID_ROWS_CHECK_ALL:
        CheckAllRows(*this, true);
        break;
    case ID_ROWS_UNCHECK_ALL:
        CheckAllRows(*this, false);
        break;
    case ID_ROWS_UNIQUE_NAMES:
        AppendToAllRows(*this, UniqueSuffix());
        break;
    default:
        break;
    }
}

LRESULT frmOverwrite::PreMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                                 std::uint32_t& handled) {
    LRESULT result = List.OnParentMessage(hwnd, message, wParam, lParam, handled);
    if (!handled)
        result = Menu.OnParentMessage(hwnd, message, wParam, lParam, handled);
    if (handled)
        return result;
    if (message == WM_COMMAND && LOWORD(wParam) == ID_NO_TO_ALL && HIWORD(wParam) == BN_CLICKED) {
        NoToAll();
        handled = 1;
    } else if (message == WM_GETMINMAXINFO) {
        LimitSize(*reinterpret_cast<MINMAXINFO*>(lParam));
        handled = 1;
    }
    return 0;
}

void frmOverwrite::Commit() {
    int row = 0;
    for (clOverwriteItem& item : Rows) {
        item.replacementPath = List.GetCellText(row, 0) + Extension;
        item.skipFlag = List.IsChecked(row) ? 0 : 1;
        ++row;
    }
}

// The user is to see the check marks go.
void frmOverwrite::NoToAll() {
    CheckAllRows(List, false);
    UpdateWindow(List.List);
    Sleep(uncheckedMs);
    OnOK();
}

void frmOverwrite::OnMouseWheel(int, int, int delta, WORD) {
    ScrollRows(List, delta);
}

void frmOverwrite::OnOK() {
    Commit();
    EndDialog(Hwnd, 1);
}
