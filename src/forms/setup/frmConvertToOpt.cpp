// Making and ending the set-up form, its commands and its drawing.
#include "forms/setup/frmConvertToOpt.h"

#include "forms/FormCaption.h"
#include "forms/setup/ShellActions.h"
#include "foundation/XFileSystem.h"
#include "host/HandOff.h"
#include "resources/ids.h"
#include "toolkit/XResizeLayout.h"

#include <utility>

namespace {

constexpr int iconEdge = 16; // pixels
constexpr UINT imageFlags = ILC_MASK | ILC_COLOR24;
static_assert(imageFlags == 25);
constexpr POINT hintPlace = {67, 164};                 // dialog units
constexpr RECT effectPlace = {22, 212, 298, 65};       // dialog units; width and height
constexpr int effectCaptionX = 28, effectValueX = 150; // pixels at 96 dpi
constexpr int effectRowHeight = 21;
constexpr int foldersWidth = 213; // dialog units: the open list reaches below the button
constexpr int hintDpi = 192;      // that the hints are drawn for
constexpr int plainDpi = 96;
constexpr UINT handOffMs = 500;
constexpr wchar_t helpFile[] = L"Help\\zTM\\zTM.htm";

void LoadHint(XBitmap& hint, int id) {
    XBitmap drawn;
    drawn.LoadResource(id, true);
    XBitmap source;
    source.Copy(drawn);
    const int dpi = ScaleToDpi(plainDpi);
    hint.Create(nullptr, MulDiv(source.Width(), dpi, hintDpi), MulDiv(source.Height(), dpi, hintDpi));
    SetStretchBltMode(hint.Dc, HALFTONE);
    SetBrushOrgEx(hint.Dc, 0, 0, nullptr);
    StretchBlt(hint.Dc, 0, 0, hint.Width(), hint.Height(), source.Dc, 0, 0, source.Width(), source.Height(),
               SRCCOPY);
}

} // namespace

frmConvertToOpt::frmConvertToOpt(bool& convert, clFileList& files, clSetUpSeams seamsGiven)
    : Files(&files), seams(std::move(seamsGiven)) {
    if (!seams.openDocument)
        seams.openDocument = OpenDocument;
    if (!seams.chooseFolder)
        seams.chooseFolder = ChooseFolder;
    convert = ShowModal(ID_DIALOG_CONVERT_TO, nullptr) == 1;
}

frmConvertToOpt::~frmConvertToOpt() {
    Destroy();
}

void frmConvertToOpt::OnInit() {
    SetIcons(LoadProgramIcon(ID_ICON_PROGRAM, GetSystemMetrics(SM_CXICON)),
             LoadProgramIcon(ID_ICON_PROGRAM, GetSystemMetrics(SM_CXSMICON)));
    SetWindowTextW(Hwnd, FormCaption());
    LoadHint(HintDynamic, ID_BITMAP_HINT_DYNAMIC);
    LoadHint(HintFolder, ID_BITMAP_HINT_FOLDER);
    SendMessageW(Control(ID_NAMING), EM_LIMITTEXT, longestNaming, 0);
    EncoderList.Bind(Control(ID_ENCODER_LIST));
    FolderList.Attach(Control(ID_FOLDER_LIST), false);
    SendMessageW(FolderList.Combo, CB_SETDROPPEDWIDTH, static_cast<WPARAM>(DialogX(Hwnd, foldersWidth)), 0);
    UpdateFileCount();
    EncoderList.Fill();
    FillFolders();
    MakeOptions();
    OnEncoderChanged(true);
    DragAcceptFiles(Hwnd, TRUE);
    AddFilesEvent = MakeHandOffEvent();
    AddTimer(handOffMs);
}

void frmConvertToOpt::MakeOptions() {
    TabImages.Reset(ImageList_Create(iconEdge, iconEdge, imageFlags, 0, 2));
    for (const int id : {ID_ICON_TAB_EFFECTS, ID_ICON_TAB_OTHER}) {
        const XIcon icon(LoadProgramIcon(id, iconEdge));
        ImageList_ReplaceIcon(TabImages.Get(), -1, icon.Get());
    }
    EffectList.Create(effectPlace.left, effectPlace.top, effectPlace.right, effectPlace.bottom, Hwnd,
                      effectCaptionX, effectValueX, effectRowHeight);
    EffectList.EnableDragging();
    const LONG_PTR style = GetWindowLongPtrW(EffectList.List, GWL_EXSTYLE);
    SetWindowLongPtrW(EffectList.List, GWL_EXSTYLE, style & ~WS_EX_CLIENTEDGE);
    // Above the tab control that it lies on, and there in the order of Tab.
    SetWindowPos(EffectList.List, Control(ID_NAMING_SET), 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    Options.Tabs = Control(ID_OPTIONS_TAB);
    TabCtrl_SetImageList(Options.Tabs, TabImages.Get());
    Options.AddPage(L"DSP Effects / Actions", EffectList.List, 0);
}

void frmConvertToOpt::OnDestroy() {
    ToolTip.Hide();
    CloseEncoderPanel(false);
    EncoderList.Clear();
    EncoderList.Detach();
    FolderList.Clear();
    EffectList.Control.Close();
    EffectList.Clear();
    EffectList.Detach();
}

void frmConvertToOpt::OnOK() {
    SaveFormState();
    EndDialog(Hwnd, 1);
}

void frmConvertToOpt::OnCancel() {
    SaveFormState();
    EndDialog(Hwnd, 0);
}

void frmConvertToOpt::OnClose() {
    EndDialog(Hwnd, 0);
}

void frmConvertToOpt::OnPaint() {
    const XBitmap& hint = OutputChoice().dynamic ? HintDynamic : HintFolder;
    RECT place = {hintPlace.x, hintPlace.y, 0, 0};
    MapDialogRect(Hwnd, &place);
    PAINTSTRUCT paint{};
    const HDC dc = BeginPaint(Hwnd, &paint);
    hint.Blit(dc, place.left, place.top);
    EndPaint(Hwnd, &paint);
}

void frmConvertToOpt::OnSysCommand(WPARAM command) {
    if ((command & 0xFFF0) == SC_CONTEXTHELP) {
        SetCursor(LoadCursorW(nullptr, IDC_ARROW));
        OpenHelp();
    }
}

void frmConvertToOpt::OpenHelp() {
    seams.openDocument(ProgramFolder() + helpFile);
}

LRESULT frmConvertToOpt::PreMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                                    std::uint32_t& handled) {
    LRESULT result = EncoderList.OnParentMessage(hwnd, message, wParam, lParam, handled);
    if (!handled)
        result = FolderList.OnParentMessage(hwnd, message, wParam, lParam, handled);
    if (!handled)
        result = EffectList.OnParentMessage(hwnd, message, wParam, lParam, handled);
    if (!handled)
        result = Options.OnParentMessage(hwnd, message, wParam, lParam, handled);
    if (!handled)
        result = EffectMenu.OnParentMessage(hwnd, message, wParam, lParam, handled);
    if (handled)
        return result;
    if (message == WM_DROPFILES) {
        TakeDroppedFiles(reinterpret_cast<HDROP>(wParam));
        handled = 1;
    } else if (message == WM_HELP && GetKeyState(VK_F1) < 0) {
        OpenHelp(); // the question mark of the caption has opened it already
        handled = 1;
    } else if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED) {
        handled = Command(LOWORD(wParam));
    }
    return 0;
}

bool frmConvertToOpt::Command(int id) {
    switch (id) {
    case ID_OUTPUT_ORIGINAL:
    case ID_OUTPUT_FOLDER:
    case ID_OUTPUT_DYNAMIC:
        UpdateOutputControls();
        return true;
    case ID_FOLDER_BROWSE:
        Browse();
        return true;
    case ID_NAMING_SET:
        EditNaming();
        return true;
    case ID_LIST_RENAME:
        ListAndRename();
        return true;
    case ID_EFFECT_ADD:
        ShowEffectMenu(Hwnd, EffectMenu, EffectList, Control(ID_EFFECT_ADD), seams.effects);
        return true;
    default:
        return false;
    }
}
