// Showing the form of errors and information, its commands and its layout.
#include "forms/review/frmErrorsInfo.h"

#include "forms/review/LogTree.h"
#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "resources/ids.h"

#include <cstdlib>
#include <cstring>

namespace {

// Dialog units
constexpr int margin = 7;
constexpr int treeHeightLess = 30;
constexpr int buttonRow = 19;
constexpr int reconvertX = 100;
constexpr int halfOk = 25;
constexpr int smallestTreeHeight = 90;

constexpr int iconEdge = 16; // pixels
constexpr UINT imageFlags = ILC_MASK | ILC_COLOR24;
static_assert(imageFlags == 25);
constexpr DWORD copiedTipMs = 3000;

HICON LoadSmallIcon(int id) {
    return static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id), IMAGE_ICON,
                                         iconEdge, iconEdge, LR_DEFAULTCOLOR));
}

bool StartProcess(XString& commandLine) {
    STARTUPINFOW startUp{};
    startUp.cb = sizeof(startUp);
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, commandLine.Buffer(), nullptr, nullptr, FALSE, NORMAL_PRIORITY_CLASS,
                        nullptr, nullptr, &startUp, &process))
        return false;
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return true;
}

bool WriteListFile(const XString& path, const XArray<clLogEntry>& log) {
    const XString lines = FailedSources(log);
    XFile file(path);
    return file.Open(GENERIC_WRITE, CREATE_ALWAYS) &&
           file.Write(lines.Text(), static_cast<DWORD>(lines.Count()) * sizeof(wchar_t));
}

// A clipboard that another program holds open stays as it was.
void PutOnClipboard(const XString& text) {
    if (!OpenClipboard(nullptr))
        return;
    EmptyClipboard();
    const std::size_t bytes = static_cast<std::size_t>(text.StoredLength()) * sizeof(wchar_t);
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes);
    if (void* target = block ? GlobalLock(block) : nullptr) {
        std::memcpy(target, text.Text(), bytes);
        GlobalUnlock(block);
        if (!SetClipboardData(CF_UNICODETEXT, block)) // else the system owns the block
            GlobalFree(block);
    }
    CloseClipboard();
}

} // namespace

clProgramStart startProgram = StartProcess;

frmErrorsInfo::frmErrorsInfo() = default;

frmErrorsInfo::~frmErrorsInfo() {
    End();
}

// Tips wait for their thread, and handle messages meanwhile: not while a window is coming or going.
void frmErrorsInfo::End() {
    Destroy();
    Tips.Clear();
}

void frmErrorsInfo::ShowEndOfBatch(HWND owner) {
    End();
    ShowModal(ID_DIALOG_ERRORS_INFO, owner);
    Tips.Clear();
}

void frmErrorsInfo::ShowDuringBatch(HWND owner) {
    WINDOWPLACEMENT place{};
    place.length = sizeof(place);
    const bool wasOpen = Hwnd && IsWindowVisible(Hwnd) && GetWindowPlacement(Hwnd, &place);
    End();
    if (!ShowModeless(ID_DIALOG_ERRORS_INFO, owner))
        return;
    if (wasOpen)
        SetWindowPlacement(Hwnd, &place); // shows it, too
    else
        ShowWindow(Hwnd, SW_SHOW);
    keys.Attach(Hwnd);
}

void frmErrorsInfo::OnInit() {
    isFilled = false;
    HasErrors = ErrorLog && !ErrorLog->IsEmpty();
    HasInfo = InfoLog && !InfoLog->IsEmpty();
    HasBoth = HasErrors && HasInfo;
    CornerIcon.Reset(LoadSmallIcon(ID_ICON_CORNER));
    SendMessageW(Control(ID_RESIZE_CORNER), STM_SETICON, reinterpret_cast<WPARAM>(CornerIcon.Get()), 0);
    Tabs.Tabs = Control(ID_LOG_TABS);
    Tabs.Pages.ClearSlots(); // those of an earlier showing
    Tabs.PageData.ClearSlots();
    Tree.Tree = Control(ID_LOG_TREE);
}

// Comes again when the owner is restored from the task bar.
void frmErrorsInfo::OnShow(LPARAM) {
    if (isFilled)
        return;
    isFilled = true;
    SetWindowTextW(Hwnd, LogCaption(HasErrors, HasInfo));
    LoadImages();
    AddTabs();
    OfferReconvert();
    RECT client{};
    GetClientRect(Hwnd, &client);
    Layout(client.right, client.bottom);
    FillTree(0);
}

// The thread of the tips may show one at any time, and none may outlive its button.
void frmErrorsInfo::OnDestroy() {
    keys.Detach();
    for (XToolTip& tip : Tips)
        tip.Hide();
    Handled = 0;
}

void frmErrorsInfo::LoadImages() {
    Images.Reset(ImageList_Create(iconEdge, iconEdge, imageFlags, 0, 16));
    for (const int id : {ID_ICON_ERROR, ID_ICON_INFORMATION, ID_ICON_TEXT_LINE}) {
        const XIcon icon(LoadSmallIcon(id));
        ImageList_ReplaceIcon(Images.Get(), -1, icon.Get());
    }
    const auto list = reinterpret_cast<LPARAM>(Images.Get());
    SendMessageW(Control(ID_LOG_TREE), TVM_SETIMAGELIST, TVSIL_NORMAL, list);
    SendMessageW(Control(ID_LOG_TABS), TCM_SETIMAGELIST, 0, list);
}

void frmErrorsInfo::AddTabs() {
    if (HasErrors)
        Tabs.AddPage(L"Errors", nullptr, logErrors);
    if (HasInfo)
        Tabs.AddPage(L"Information", nullptr, logInformation);
    if (!HasBoth)
        ShowWindow(Control(ID_LOG_TABS), SW_HIDE);
}

void frmErrorsInfo::OfferReconvert() {
    if (!CanReconvert || !HasErrors)
        return;
    const HWND button = Control(ID_LOG_RECONVERT);
    clTipDesc tip;
    tip.Anchor = button;
    tip.Text =
        L"File(s) with Errors are re-added to Tonemill\rfor re-converting (perhaps with changed settings).";
    Tips.AddNew()->Show(tip);
    ShowWindow(button, SW_SHOW);
}

void frmErrorsInfo::OnSize(int width, int height, WPARAM how) {
    if (how == SIZE_MINIMIZED || !IsWindowVisible(Hwnd))
        return;
    const XLayoutScope scope(Hwnd);
    Layout(width, height);
}

void frmErrorsInfo::Layout(int width, int height) {
    corner.Place(width, height);
    const HWND tree = Control(ID_LOG_TREE);
    const HWND central = HasBoth ? Control(ID_LOG_TABS) : tree;
    const int x = DialogX(Hwnd, margin);
    const int y = DialogY(Hwnd, margin);
    MoveControl(central, x, y);
    SizeControl(central, width - 2 * x, height - DialogY(Hwnd, treeHeightLess));
    if (HasBoth)
        Tabs.Fit(tree);
    const int row = height - DialogY(Hwnd, buttonRow);
    MoveControl(Control(ID_LOG_COPY), x, row);
    MoveControl(Control(ID_LOG_RECONVERT), DialogX(Hwnd, reconvertX), row);
    MoveControl(Control(IDOK), width / 2 - DialogX(Hwnd, halfOk), row);
}

// "Ok" stands in the middle: half of the width has room for what is left of it.
void frmErrorsInfo::LimitSize(MINMAXINFO& limits) const {
    const bool offers = (GetWindowLongPtrW(Control(ID_LOG_RECONVERT), GWL_STYLE) & WS_VISIBLE) != 0;
    RECT last{};
    GetWindowRect(Control(offers ? ID_LOG_RECONVERT : ID_LOG_COPY), &last);
    MapWindowPoints(nullptr, Hwnd, reinterpret_cast<POINT*>(&last), 2);
    RECT window{0, 0, 2 * (last.right + DialogX(Hwnd, margin) + DialogX(Hwnd, halfOk)),
                DialogY(Hwnd, smallestTreeHeight + treeHeightLess)};
    AdjustWindowRectEx(&window, static_cast<DWORD>(GetWindowLongPtrW(Hwnd, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrW(Hwnd, GWL_EXSTYLE)));
    limits.ptMinTrackSize = {window.right - window.left, window.bottom - window.top};
}

void frmErrorsInfo::FillTree(int tab) {
    const clLogKind kind = LogOfTab(tab, HasErrors, HasInfo);
    SetWindowTextW(Control(ID_LOG_COPY), CopyButtonText(kind));
    FillLogTree(Control(ID_LOG_TREE), kind == logErrors ? ErrorLog : InfoLog, kind);
}

void frmErrorsInfo::_TabPage::OnTabSelected(int index) {
    form.FillTree(index);
}

// Below the item when it was asked for by the keyboard, else at the cursor.
void frmErrorsInfo::_TreeView::OnContextMenu(int x, int y) {
    const XIcon expand(LoadSmallIcon(ID_ICON_EXPAND));
    const XIcon collapse(LoadSmallIcon(ID_ICON_COLLAPSE));
    XOwnerMenu& menu = form.Menu;
    menu.Reset();
    menu.AddItem({ID_LOG_EXPAND_ALL, L"Expand All", expand.Get()}, true);
    menu.AddItem({ID_LOG_COLLAPSE_ALL, L"Collapse All", collapse.Get()}, true);
    const UINT chosen = menu.TrackAt(form.Hwnd, x, y);
    menu.Reset();
    if (chosen == ID_LOG_EXPAND_ALL)
        ExpandRoots(Tree, TVE_EXPAND);
    else if (chosen == ID_LOG_COLLAPSE_ALL)
        ExpandRoots(Tree, TVE_COLLAPSE);
}

LRESULT frmErrorsInfo::PreMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                                  std::uint32_t& handled) {
    LRESULT result = Tabs.OnParentMessage(hwnd, message, wParam, lParam, handled);
    if (!handled)
        result = Tree.OnParentMessage(hwnd, message, wParam, lParam, handled);
    if (!handled)
        result = Menu.OnParentMessage(hwnd, message, wParam, lParam, handled);
    if (handled)
        return result;
    if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED) {
        handled = Command(LOWORD(wParam));
    } else if (message == WM_GETMINMAXINFO) {
        LimitSize(*reinterpret_cast<MINMAXINFO*>(lParam));
        handled = 1;
    } else if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == TVN_KEYDOWN) {
        handled = TreeKey(*reinterpret_cast<const NMTVKEYDOWN*>(lParam));
        return handled; // the control then doesn't search for the character
    } else if (message == WM_NCDESTROY) {
        Hwnd = nullptr; // without Destroy when the owner's window goes first
    }
    return 0;
}

bool frmErrorsInfo::Command(int id) {
    switch (id) {
    case ID_LOG_COPY:
        Copy();
        return true;
    case ID_LOG_RECONVERT:
        Reconvert();
        return true;
    default:
        return false;
    }
}

bool frmErrorsInfo::TreeKey(const NMTVKEYDOWN& key) {
    if (key.wVKey != 'C' || GetKeyState(VK_CONTROL) >= 0 || GetKeyState(VK_MENU) < 0)
        return false;
    Copy();
    return true;
}

void frmErrorsInfo::Copy() {
    POINT cursor{};
    GetCursorPos(&cursor);
    PutOnClipboard(LogTreeText(Tree));
    const XIcon icon(LoadSmallIcon(ID_ICON_INFORMATION));
    clTipDesc tip;
    tip.Text = L"Details Copied to Clipboard";
    tip.Icon = icon.Get();
    tip.FixedX = cursor.x;
    tip.FixedY = cursor.y - 10;
    tip.Hold = copiedTipMs;
    CopiedTip.Show(tip);
}

// Without a list file or a process the form closes all the same, and leaves no file behind.
void frmErrorsInfo::Reconvert() {
    XTempFile list;
    if (ErrorLog && list.MakeNew(L"ZtS") && WriteListFile(list, *ErrorLog)) {
        XString commandLine = ReconvertCommandLine(ProgramFolder(), list);
        if (startProgram(commandLine))
            list.Clear(); // the other instance takes the file over
    }
    OnOK();
}

// A tree that has nothing to scroll hands the message back to its parent.
void frmErrorsInfo::OnMouseWheel(int x, int y, int delta, WORD keyFlags) {
    if (isPassingWheel)
        return;
    isPassingWheel = true;
    const int steps = WheelSteps(delta);
    const WPARAM step = MAKEWPARAM(keyFlags, static_cast<WORD>(steps < 0 ? -WHEEL_DELTA : WHEEL_DELTA));
    for (int i = 0; i < std::abs(steps); ++i)
        SendMessageW(Control(ID_LOG_TREE), WM_MOUSEWHEEL, step, MAKELPARAM(x, y));
    isPassingWheel = false;
}

void frmErrorsInfo::OnOK() {
    EndDialog(Hwnd, 1);
}
