// Making and ending the converting form, its commands and buttons.
#include "forms/converting/frmConverting.h"

#include "forms/FormCaption.h"
#include "forms/converting/Rows.h"
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
constexpr int textHeight = 13; // pixels at 96 dots per inch
constexpr UINT tickMs = 50;
constexpr std::uint64_t tickTimer = 1;
constexpr int smallIconEdge = 16;

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
    overallBar.Load();
    rowBars.Load();
    textFont.Create(nullptr, L"", ScaleToDpi(textHeight), GetSysColor(COLOR_BTNTEXT));
    SendMessageW(Control(ID_HEADING), WM_SETFONT, reinterpret_cast<WPARAM>(textFont.Handle()), FALSE);
    SetWindowTextW(Hwnd, FormCaption());
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
    buttons.Clear();
    logs.Destroy();
    taskbar.Disconnect();
    SetThreadExecutionState(ES_CONTINUOUS);
}

void frmConverting::OnClose() {
    if (!IsWindowEnabled(Hwnd))
        return; // a box of ours waits for its answer
    if (conversion.scheduler.conversionState == stateFinished)
        EndConversion();
    else
        cmdCancel.OnClick(false);
}

void frmConverting::OnCancel() {
    OnClose();
}

void frmConverting::LoadIcons() {
    SetIcons(LoadProgramIcon(ID_ICON_PROGRAM, GetSystemMetrics(SM_CXICON)),
             LoadProgramIcon(ID_ICON_PROGRAM, GetSystemMetrics(SM_CXSMICON)));
    slotIcon.Reset(LoadProgramIcon(ID_ICON_SLOT, ScaleToDpi(smallIconEdge)));
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
    RECT client{};
    GetClientRect(Hwnd, &client);
    buttonRowY = client.bottom - FromDialogUnits(0, buttonRowHeight).y;
    buttons.Create(Hwnd);
    cmdOptions.Menu = options.menu.Menu;
    AddButton(cmdOptions, ID_BUTTON_OPTIONS, L"&Options", L"Options Menu", optionsX);
    AddButton(cmdPause, ID_BUTTON_PAUSE, L"&Pause", L"Pause Conversion", pauseX);
    AddButton(cmdCancel, ID_BUTTON_CANCEL, L"&Cancel", L"Cancel Conversion", cancelX);
}

void frmConverting::AddButton(XButton& button, int id, const wchar_t* caption, const wchar_t* tip,
                              int dialogX) {
    const POINT size = FromDialogUnits(buttonWidth, buttonHeight);
    clButtonDesc description;
    description.X = FromDialogUnits(dialogX, 0).x;
    description.Y = buttonRowY;
    description.Width = size.x;
    description.Height = size.y;
    description.Caption = caption;
    description.Flags = buttonAllFaces;
    description.Id = id;
    description.Menu = button.Menu;
    description.Tip = tip;
    buttons.AddButton(button, description, 0, this);
}

LRESULT frmConverting::PreMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                                  std::uint32_t& handled) {
    LRESULT result = buttons.OnParentMessage(hwnd, message, wParam, lParam, handled);
    if (!handled)
        result = options.menu.OnParentMessage(hwnd, message, wParam, lParam, handled);
    if (handled)
        return result;
    if (message == clTaskbarProgress::ButtonCreatedMessage()) {
        taskbar.Connect();
        handled = 1;
    } else if (message == WM_PAINT) {
        Paint();
        handled = 1;
    } else if (message == WM_COMMAND && HIWORD(wParam) <= 1) { // from menu or keyboard
        handled = Command(LOWORD(wParam));
    }
    return 0;
}

bool frmConverting::Command(int id) {
    if (id == ID_VIEW_LOGS) {
        ViewLogs();
        return true;
    }
    if (!options.Command(id))
        return false;
    conversion.priority = options.priority;
    return true;
}

void frmConverting::ShareLogs(bool canReconvert) {
    logs.ErrorLog = &conversion.scheduler.errorLog;
    logs.InfoLog = &conversion.scheduler.informationLog;
    logs.CanReconvert = canReconvert;
    logs.Destroy();
}

void frmConverting::ViewLogs() {
    if (isEnding)
        return; // the log of the end is open
    ShareLogs(false);
    logs.ShowDuringBatch(Hwnd);
}

POINT frmConverting::FromDialogUnits(int x, int y) const {
    RECT mapped = {x, y, x, y};
    MapDialogRect(Hwnd, &mapped);
    return {mapped.left, mapped.top};
}

void frmConverting::_cmdPause::OnClick(bool) {
    const bool down = !form.conversion.IsPaused();
    if (down)
        form.conversion.Pause();
    else
        form.conversion.Resume();
    SetToggle(down);
    form.taskbar.SetState(form.Hwnd, down ? TBPF_PAUSED : TBPF_NORMAL);
}

void frmConverting::_cmdCancel::OnClick(bool) {
    const int answer =
        MessageBoxW(form.Hwnd, L"Cancel Conversion?", programCaption, MB_YESNO | MB_ICONQUESTION);
    if (answer != IDYES || form.conversion.scheduler.conversionState == stateFinished)
        return;
    form.conversion.Cancel();
    form.cmdPause.SetToggle(false);
}

void frmConverting::_cmdFinish::OnClick(bool) {
    form.EndConversion();
}
