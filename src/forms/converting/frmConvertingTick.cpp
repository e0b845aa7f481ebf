// The timer step of the converting form and what follows conversion.
#include "forms/converting/Rows.h"
#include "forms/converting/frmConverting.h"
#include "forms/review/frmOverwrite.h"
#include "host/Settings.h"
#include "resources/ids.h"

namespace {

constexpr int finishX = 284; // dialog units
constexpr std::uint64_t tickTimer = 1;

// Set during a step: a modal box opened inside one suspends the engine until it closes.
bool isInTick = false;

} // namespace

void frmConverting::OnTimer(std::uint64_t id, std::uint64_t) {
    if (id != tickTimer || isInTick)
        return;
    isInTick = true;
    TimerStep();
    isInTick = false;
}

void frmConverting::TimerStep() {
    const clTickReport report = conversion.Tick();
    ShowReport(report);
    switch (report.outcome) {
    case clTickOutcome::nothing:
        break;
    case clTickOutcome::abandoned:
        EndOpenLoops();
        EndDialog(Hwnd, 0);
        break;
    case clTickOutcome::finishBatch:
        FinishBatch();
        break;
    case clTickOutcome::cancelled:
        EndConversion();
        break;
    }
}

void frmConverting::ShowReport(const clTickReport& report) {
    ShowTexts();
    if (conversion.scheduler.hasReports)
        options.EnableLogs();
    if (!conversion.AreRowsShown())
        return;
    ShowRowTexts(report.textsChanged);
    for (int i = 0; i < conversion.scheduler.slots.Count(); ++i) {
        if ((report.barsChanged >> i & 1) != 0) {
            const RECT bar = RowBar(i);
            InvalidateRect(Hwnd, &bar, FALSE);
        }
    }
}

void frmConverting::ShowTexts() {
    const clProgressTexts& texts = conversion.texts;
    if (!texts.title.IsEmpty() && SetTextIfChanged(Hwnd, shown.title, texts.title)) {
        InvalidateOverallBar();
        taskbar.SetPercent(Hwnd, conversion.overallPercent);
        if (!conversion.scheduler.errorLog.IsEmpty())
            taskbar.SetState(Hwnd, TBPF_ERROR);
    }
    if (!texts.heading.IsEmpty())
        ShowHeading(texts.heading);
    SetTextIfChanged(Control(ID_STATUS), shown.status, texts.status);
    SetTextIfChanged(Control(ID_SPEED), shown.speed, texts.speed);
    SetTextIfChanged(Control(ID_ELAPSED), shown.elapsed, texts.elapsed);
    SetTextIfChanged(Control(ID_REMAINING), shown.remaining, texts.remaining);
}

void frmConverting::ShowHeading(const wchar_t* text) {
    if (SetTextIfChanged(Control(ID_HEADING), shown.heading, text))
        PlaceHeading();
}

void frmConverting::ShowRowTexts(std::uint32_t slots) {
    for (int i = 0; i < conversion.scheduler.slots.Count(); ++i)
        if ((slots >> i & 1) != 0)
            SetWindowTextW(Control(rowControls[i].text), conversion.scheduler.slots[i].shownText);
}

void frmConverting::FinishBatch() {
    // The heading tells of the effects, and their end of batch can take long.
    RedrawWindow(Hwnd, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    conversion.FinishBatch();
    ShowTexts();
    if (conversion.AreRowsShown())
        ShowRowTexts(~0U);
    InvalidateOverallBar();
    buttons.RemoveButton(cmdCancel);
    AddButton(cmdFinish, ID_BUTTON_FINISH, L"&Finish", L"Close Zephtone", finishX);
    cmdFinish.Focus();
    cmdPause.SetToggle(false);
    cmdPause.Enable(false);
    if (options.skipFinished || !conversion.scheduler.errorLog.IsEmpty())
        EndConversion();
}

// The Options menu and the question of a cancel have loops of their own, which would stay on the
// screen, and the form hidden behind them, until the user answers.
void frmConverting::EndOpenLoops() {
    EndMenu();
    HWND box = nullptr;
    while ((box = FindWindowExW(nullptr, box, L"#32770", programCaption)) != nullptr)
        if (GetWindow(box, GW_OWNER) == Hwnd)
            SendMessageW(box, WM_COMMAND, IDNO, 0);
}

void frmConverting::EndConversion() {
    // A menu, a question or a drag of the window keeps the form, and so its ticks, alive behind the end.
    if (isEnding)
        return;
    isEnding = true;
    EndOpenLoops();
    SavePosition();
    PerformPowerAction(options.afterConversion);
    XArray<clLogEntry>& errors = conversion.scheduler.errorLog;
    XArray<clLogEntry>& information = conversion.scheduler.informationLog;
    if (!options.showInformationLog)
        information.Clear();
    if (!options.showErrorLog)
        errors.Clear();
    if (!errors.IsEmpty() || !information.IsEmpty()) {
        ShareLogs(true);
        logs.ShowEndOfBatch(Hwnd);
    }
    EndDialog(Hwnd, 0);
}

void frmConverting::SavePosition() {
    if (IsZoomed(Hwnd) || IsIconic(Hwnd))
        return;
    RECT window{};
    GetWindowRect(Hwnd, &window);
    RegWriteDword(static_cast<DWORD>(window.left), Setting::formX);
    RegWriteDword(static_cast<DWORD>(window.top), Setting::formY);
}

bool frmConverting::AskOverwrite(XArray<clOverwriteItem>& items) {
    int isDecided = 1;
    const frmOverwrite form(isDecided, Hwnd, items, conversion.setup.codecName);
    return isDecided != 0;
}
