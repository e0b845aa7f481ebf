// Making and ending the converting form, its commands and buttons.
#include "forms/converting/frmConverting.h"

#include "forms/converting/Rows.h"
#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "host/CodecHandler.h"
#include "host/EffectChain.h"
#include "host/Settings.h"
#include "resources/ids.h"

namespace {

constexpr int plainClientHeight = 87; // dialog units, without rows
constexpr int rowHeight = 25;
constexpr int buttonRowHeight = 21;
constexpr int buttonWidth = 50;
constexpr int buttonHeight = 14;
constexpr int optionsX = 7;
constexpr int pauseX = 231;
constexpr int cancelX = 284;
constexpr UINT tickMs = 50;
constexpr std::uint64_t tickTimer = 1;
constexpr int smallIconEdge = 16;
constexpr wchar_t oemFileName[] = L"OEM.txt";

HICON LoadProgramIcon(int id, int edge) {
    return static_cast<HICON>(
        LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id), IMAGE_ICON, edge, edge, LR_DEFAULTCOLOR));
}

} // namespace

frmConverting::frmConverting(clFileList& files, const clConvertingSeams& seams) : conversion(files) {
    conversion.workerExecutable = seams.workerExecutable;
    conversion.launch = seams.launch;
    conversion.askOverwrite = [this](XArray<clOverwriteItem>& items) { return AskOverwrite(items); };
    ShowModal(ID_DIALOG_CONVERTING, nullptr);
}

frmConverting::~frmConverting() {
    Destroy();
}

void frmConverting::OnInit() {
    conversion.ReadSetup();
    LoadIcons();
    options.Load();
    conversion.priority = options.priority;
    textFont.Reset(CreateFontW(ScaleToDpi(13), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                               OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                               DEFAULT_PITCH | FF_DONTCARE, L"Tahoma"));
    SendMessageW(Control(ID_HEADING), WM_SETFONT, reinterpret_cast<WPARAM>(textFont.Get()), FALSE);
    SetCaption();
    conversion.Prepare();
    ShowTexts();
    LoadEffectIcons();
    HideSurplusRows();
    SizeToRows();
    PlaceWindow();
    MakeButtons();
    AddTimer(tickMs, tickTimer);
    conversion.StartReadAhead();
    SetThreadExecutionState(ES_CONTINUOUS | ES_SYSTEM_REQUIRED);
}

void frmConverting::OnDestroy() {
    cmdOptions.Remove();
    cmdPause.Remove();
    cmdCancel.Remove();
    cmdFinish.Remove();
    taskbar.Disconnect();
    SetThreadExecutionState(ES_CONTINUOUS);
}

void frmConverting::OnClose() {
    if (!IsWindowEnabled(Hwnd))
        return; // a box of ours waits for its answer
    if (conversion.scheduler.conversionState == stateFinished)
        EndConversion();
    else
        cmdCancel.OnClick();
}

void frmConverting::LoadIcons() {
    SetIcons(LoadProgramIcon(ID_ICON_PROGRAM, GetSystemMetrics(SM_CXICON)),
             LoadProgramIcon(ID_ICON_PROGRAM, GetSystemMetrics(SM_CXSMICON)));
    slotIcon.Reset(LoadProgramIcon(ID_ICON_SLOT, smallIconEdge));
    for (const clRowControls& row : rowControls)
        SendMessageW(Control(row.icon), STM_SETICON, reinterpret_cast<WPARAM>(slotIcon.Get()), 0);
    encoderIcon = GetEncoderIcon(conversion.setup.extension, EncoderLibraryPath(conversion.setup.codecName));
    SendMessageW(Control(ID_ENCODER_ICON), STM_SETICON, reinterpret_cast<WPARAM>(encoderIcon.Get()), 0);
}

void frmConverting::LoadEffectIcons() {
    XArray<clChainEntry> chain;
    EffectChainFromText(chain, conversion.setup.chainText);
    for (const clChainEntry& entry : chain) {
        XIcon icon = GetEffectIcon(EffectLibraryPath(entry.name));
        if (icon.IsValid())
            effectIcons.AddNew(std::move(icon));
    }
}

void frmConverting::SetCaption() {
    XString caption(programCaption);
    XFile oem(ProgramFolder() + oemFileName);
    XString line;
    if (oem.Open(GENERIC_READ, OPEN_EXISTING) && oem.ReadLine(line, true))
        caption += L": " + line;
    SetWindowTextW(Hwnd, caption);
}

void frmConverting::HideSurplusRows() {
    const std::int64_t rows = conversion.AreRowsShown() ? conversion.scheduler.slots.Count() : 0;
    for (int i = static_cast<int>(rows); i < maximumSlots; ++i)
        for (const int id : {rowControls[i].text, rowControls[i].label, rowControls[i].icon})
            ShowWindow(Control(id), SW_HIDE);
}

void frmConverting::SizeToRows() {
    const int rows = conversion.AreRowsShown() ? static_cast<int>(conversion.scheduler.slots.Count()) : 0;
    RECT window{};
    RECT client{};
    GetWindowRect(Hwnd, &window);
    GetClientRect(Hwnd, &client);
    const int frame = window.bottom - window.top - client.bottom;
    MoveTo(keepPosition, keepPosition, keepPosition,
           FromDialogUnits(0, plainClientHeight + rows * rowHeight).y + frame);
}

void frmConverting::PlaceWindow() {
    const int x = static_cast<int>(RegReadDword(Setting::formX));
    const int y = static_cast<int>(RegReadDword(Setting::formY));
    RECT desktop{};
    GetClientRect(GetDesktopWindow(), &desktop);
    if (x != 0 && y != 0 && PtInRect(&desktop, POINT{x, y}))
        MoveTo(x, y, keepPosition, keepPosition);
    else
        CentreOnDesktop();
}

void frmConverting::MakeButtons() {
    cmdOptions.Make(*this, ID_BUTTON_OPTIONS, L"Options", optionsX);
    cmdPause.Make(*this, ID_BUTTON_PAUSE, L"Pause", pauseX, BS_CHECKBOX | BS_PUSHLIKE);
    cmdCancel.Make(*this, ID_BUTTON_CANCEL, L"Cancel", cancelX);
}

LRESULT frmConverting::PreMessage(HWND, UINT message, WPARAM wParam, LPARAM, std::uint32_t& handled) {
    if (message == clTaskbarProgress::ButtonCreatedMessage()) {
        taskbar.Connect();
        handled = 1;
    } else if (message == WM_PAINT) {
        Paint();
        handled = 1;
    } else if (message == WM_COMMAND && HIWORD(wParam) <= 1) { // a click, or from menu or keyboard
        handled = Command(LOWORD(wParam));
    }
    return 0;
}

bool frmConverting::Command(int id) {
    switch (id) {
    case ID_BUTTON_OPTIONS:
        ShowOptions();
        return true;
    case ID_BUTTON_PAUSE:
        cmdPause.OnClick();
        return true;
    case ID_BUTTON_CANCEL:
        cmdCancel.OnClick();
        return true;
    case ID_BUTTON_FINISH:
        cmdFinish.OnClick();
        return true;
    default:
        break;
    }
    if (!options.Command(id))
        return false;
    conversion.priority = options.priority;
    return true;
}

void frmConverting::ShowOptions() {
    RECT button{};
    GetWindowRect(cmdOptions.Window, &button);
    options.Show(Hwnd, button.left, button.bottom);
}

POINT frmConverting::FromDialogUnits(int x, int y) const {
    RECT mapped = {x, y, x, y};
    MapDialogRect(Hwnd, &mapped);
    return {mapped.left, mapped.top};
}

int frmConverting::ButtonRowY() const {
    RECT client{};
    GetClientRect(Hwnd, &client);
    return client.bottom - FromDialogUnits(0, buttonRowHeight).y;
}

void frmConverting::_Button::Make(frmConverting& owner, int id, const wchar_t* caption, int dialogX,
                                  DWORD style) {
    form = &owner;
    const POINT size = owner.FromDialogUnits(buttonWidth, buttonHeight);
    Window = CreateWindowExW(0, L"BUTTON", caption, WS_CHILD | WS_VISIBLE | WS_TABSTOP | style,
                             owner.FromDialogUnits(dialogX, 0).x, owner.ButtonRowY(), size.x, size.y,
                             owner.Hwnd, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                             GetModuleHandleW(nullptr), nullptr);
    const LRESULT font = SendMessageW(owner.Hwnd, WM_GETFONT, 0, 0);
    SendMessageW(Window, WM_SETFONT, static_cast<WPARAM>(font), TRUE);
}

void frmConverting::_Button::Remove() {
    if (Window)
        DestroyWindow(Window);
    Window = nullptr;
}

void frmConverting::_cmdPause::SetDown(bool down) {
    SendMessageW(Window, BM_SETCHECK, down ? BST_CHECKED : BST_UNCHECKED, 0);
}

void frmConverting::_cmdPause::OnClick() {
    const bool down = !form->conversion.IsPaused();
    if (down)
        form->conversion.Pause();
    else
        form->conversion.Resume();
    SetDown(down);
    form->taskbar.SetState(form->Hwnd, down ? TBPF_PAUSED : TBPF_NORMAL);
}

void frmConverting::_cmdCancel::OnClick() {
    const int answer =
        MessageBoxW(form->Hwnd, L"Cancel Conversion?", programCaption, MB_YESNO | MB_ICONQUESTION);
    if (answer != IDYES || form->conversion.scheduler.conversionState == stateFinished)
        return;
    form->conversion.Cancel();
    form->cmdPause.SetDown(false);
}

void frmConverting::_cmdFinish::OnClick() {
    form->EndConversion();
}
