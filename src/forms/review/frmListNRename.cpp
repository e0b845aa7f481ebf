// Showing the list of files to convert, its layout, its commands and what OK takes over.
#include "forms/review/frmListNRename.h"

#include "contract/Keys.h"
#include "forms/review/FileRows.h"
#include "forms/review/ListTexts.h"
#include "host/CodecHandler.h"
#include "naming/NamingEvaluator.h"
#include "resources/ids.h"

namespace {

// Dialog units
constexpr int margins = 14;
constexpr int listHeightLess = 44;
constexpr int summaryHeight = 8;
constexpr int hintIconX = 8, hintX = 24;
constexpr int buttonRow = 19, hintRow = 18;
constexpr int okLeft = 54, cancelRight = 6; // of the middle
constexpr int buttonWidth = 48;
constexpr int smallestListHeight = 60;

constexpr int hintNeedsWidth = 600; // pixels at 96 dpi
constexpr DWORD listStyles =
    LVS_EX_LABELTIP | LVS_EX_FULLROWSELECT | LVS_EX_CHECKBOXES | LVS_EX_SUBITEMIMAGES;
static_assert(listStyles == 0x4026);
constexpr UINT messageSummary = WM_APP + 1;

void ShowIf(HWND control, bool isShown) {
    if (control)
        ShowWindow(control, isShown ? SW_SHOW : SW_HIDE);
}

} // namespace

frmListNRename::frmListNRename(int& result, HWND parent, clFileList& files, const XString& codecName,
                               const XString& outputFolder, const XString& encoderSettings,
                               const XString& namingTemplate)
    : Files(files), CodecName(codecName), OutputFolder(outputFolder), EncoderSettings(encoderSettings),
      NamingTemplate(namingTemplate) {
    LoadEncoder();
    result = ShowModal(ID_DIALOG_LIST_RENAME, parent) == 1 ? 1 : 0;
}

frmListNRename::~frmListNRename() {
    Reader.Stop();
    Destroy();
}

void frmListNRename::LoadEncoder() {
    PluginCreateBlock create{};
    if (!clZtCodecHandler::LoadEncoder(CodecName, Encoder, &create))
        return;
    PluginParams params{};
    if (Encoder.AskGet(ZtKey::extension, params) != 0)
        Extension = params.text1;
}

void frmListNRename::OnInit() {
    List.List = Control(ID_FILE_LIST);
    List.Attach(List.List);
    ListView_SetExtendedListViewStyle(List.List, listStyles);
    List.UseShellIcons();
    RenameIcon = ShowSmallIcon(*this, ID_RENAME_ICON, ID_ICON_OVERWRITE);
    CornerIcon = ShowSmallIcon(*this, ID_RESIZE_CORNER, ID_ICON_CORNER);
    NoRename = IsNoFile(Extension);
    if (NoRename)
        SetWindowLongW(List.List, GWL_STYLE,
                       GetWindowLongW(List.List, GWL_STYLE) & ~static_cast<LONG>(LVS_EDITLABELS));
}

// The list gives its icons back after this, when it goes itself.
void frmListNRename::OnDestroy() {
    Handled = 0;
}

// Comes again when the owner is restored from the task bar, and while the form is maximised here.
void frmListNRename::OnShow(LPARAM) {
    if (isFilled)
        return;
    isFilled = true;
    ShowWindow(Hwnd, SW_MAXIMIZE);
    RECT client{};
    GetClientRect(Hwnd, &client);
    Layout(client.right, client.bottom);
    NeedsTags = HasDynamicItem(NamingTemplate);
    {
        const XListUpdate update(List);
        ListView_DeleteAllItems(List.List);
        AddColumns();
        AddRows();
    }
    UpdateSummary();
    StartReader();
    AddTimer(fillIntervalMs, fillTimer);
}

void frmListNRename::StartReader() {
    readAhead.files = &Files;
    Reader.Start(ProbeSourceFiles, &readAhead, readAheadStopMs);
    if (Reader.thread.IsValid())
        SetThreadPriority(Reader.thread.Get(), THREAD_PRIORITY_LOWEST);
}

void frmListNRename::OnSize(int width, int height, WPARAM how) {
    if (how == SIZE_MINIMIZED || !IsWindowVisible(Hwnd))
        return;
    const XLayoutScope scope(Hwnd);
    Layout(width, height);
}

void frmListNRename::Layout(int width, int height) {
    const bool hasHint = !NoRename && width >= ScaleToDpi(hintNeedsWidth);
    ShowIf(Control(ID_RENAME_ICON), hasHint);
    ShowIf(Control(ID_RENAME_HINT), hasHint);
    corner.Place(width, height);
    const int listWidth = width - DialogX(Hwnd, margins);
    const int row = height - DialogY(Hwnd, buttonRow);
    SizeControl(List.List, listWidth, height - DialogY(Hwnd, listHeightLess));
    SizeControl(Control(ID_LIST_SUMMARY), listWidth, DialogY(Hwnd, summaryHeight));
    MoveControl(Control(ID_RENAME_ICON), DialogX(Hwnd, hintIconX), row);
    MoveControl(Control(ID_RENAME_HINT), DialogX(Hwnd, hintX), height - DialogY(Hwnd, hintRow));
    MoveControl(Control(IDOK), width / 2 - DialogX(Hwnd, okLeft), row);
    MoveControl(Control(IDCANCEL), width / 2 + DialogX(Hwnd, cancelRight), row);
}

// "Cancel" and the corner have room beside each other, the list keeps some rows.
void frmListNRename::LimitSize(MINMAXINFO& limits) const {
    RECT window{0, 0, 2 * (DialogX(Hwnd, cancelRight + buttonWidth) + XResizeCorner::sizePixels),
                DialogY(Hwnd, smallestListHeight + listHeightLess)};
    AdjustWindowRectEx(&window, static_cast<DWORD>(GetWindowLongPtrW(Hwnd, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrW(Hwnd, GWL_EXSTYLE)));
    limits.ptMinTrackSize = {window.right - window.left, window.bottom - window.top};
}

LRESULT frmListNRename::PreMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                                   std::uint32_t& handled) {
    LRESULT result = List.OnParentMessage(hwnd, message, wParam, lParam, handled);
    if (!handled)
        result = Menu.OnParentMessage(hwnd, message, wParam, lParam, handled);
    if (handled)
        return result;
    if (message == WM_GETMINMAXINFO) {
        LimitSize(*reinterpret_cast<MINMAXINFO*>(lParam));
        handled = 1;
    } else if (message == messageSummary) {
        isSummaryDue = false;
        UpdateSummary();
        handled = 1;
    }
    return 0;
}

// A click may change all rows at once: the line is written when all of them are told.
void frmListNRename::_lstView::OnCheckChanged(int row, bool isChecked) {
    Owner.checked[static_cast<std::size_t>(row)] = isChecked;
    if (!Owner.isSummaryDue)
        Owner.isSummaryDue = PostMessageW(Owner.Hwnd, messageSummary, 0, 0) != 0;
}

void frmListNRename::_lstView::OnContextMenu(int x, int y, HWND) {
    Owner.ShowMenu(x, y);
}

void frmListNRename::ShowMenu(int x, int y) {
    const UINT chosen = TrackRowMenu(Menu, List, Hwnd, x, y, !NoRename && !IsNameMissing());
    if (chosen == ID_ROWS_UNIQUE_NAMES)
        AppendToAllRows(List, UniqueSuffix());
    else if (chosen != 0)
        CheckAll(chosen == ID_ROWS_CHECK_ALL);
}

void frmListNRename::CheckAll(bool isChecked) {
    CheckAllRows(List, isChecked);
    checked.assign(checked.size(), isChecked);
    UpdateSummary();
}

// A time stamp behind nothing would be the name of many files.
bool frmListNRename::IsNameMissing() const {
    return NeedsTags && !IsEveryRowFilled();
}

void frmListNRename::OnMouseWheel(int, int, int delta, WORD) {
    ScrollRows(List, delta);
}

void frmListNRename::OnOK() {
    Commit();
    EndDialog(Hwnd, 1);
}
