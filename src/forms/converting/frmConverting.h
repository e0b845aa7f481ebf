// The form that the user watches during a conversion. It owns the engine and is its clock: a timer
// of 50 ms drives every step. It shows and collects; what happens is decided by the engine.
#pragma once

#include "engine/Conversion.h"
#include "forms/converting/OptionsMenu.h"
#include "forms/converting/ProgressBar.h"
#include "forms/converting/TaskbarProgress.h"
#include "forms/review/frmErrorsInfo.h"
#include "toolkit/XButtonGroup.h"
#include "toolkit/XFont.h"
#include "toolkit/XWindow.h"

// What tests put in place of the real thing.
struct clConvertingSeams {
    XString workerExecutable;   // empty: the worker beside the program
    clScheduler::Launch launch; // empty: starts a process
};

class frmConverting final : public XWindow {
public:
    // Shows the form and returns when it has closed. `files` is borrowed and must not be empty.
    explicit frmConverting(clFileList& files, const clConvertingSeams& seams = {});
    ~frmConverting() override;

    void OnClose() override;
    void OnCancel() override; // Escape
    void OnInit() override;
    void OnDestroy() override;
    void OnTimer(std::uint64_t id, std::uint64_t data) override;
    LRESULT PreMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                       std::uint32_t& handled) override;

private:
    class _cmdPause final : public XButton {
    public:
        explicit _cmdPause(frmConverting& form) : form(form) {}
        void OnClick(bool rightButton) override;

    private:
        frmConverting& form;
    };
    class _cmdCancel final : public XButton {
    public:
        explicit _cmdCancel(frmConverting& form) : form(form) {}
        void OnClick(bool rightButton) override;

    private:
        frmConverting& form;
    };
    class _cmdFinish final : public XButton {
    public:
        explicit _cmdFinish(frmConverting& form) : form(form) {}
        void OnClick(bool rightButton) override;

    private:
        frmConverting& form;
    };

    // Initialisation
    void LoadIcons();
    void LoadEffectIcons();
    void HideSurplusRows();
    void SizeToRows();
    void PlaceWindow();
    void MakeButtons();
    void AddButton(XButton& button, int id, const wchar_t* caption, const wchar_t* tip, int dialogX);

    // The timer step and what follows conversion
    void TimerStep();
    void ShowReport(const clTickReport& report);
    void ShowTexts();
    void ShowHeading(const wchar_t* text);
    void ShowRowTexts(std::uint32_t slots); // bit k: slot k
    void FinishBatch();
    void EndOpenLoops();
    void EndConversion();
    void SavePosition();
    [[nodiscard]] bool AskOverwrite(XArray<clOverwriteItem>& items);

    // Drawing
    void Paint();
    void PaintEffects(HDC dc);
    void PlaceHeading();
    [[nodiscard]] int TextWidth(const wchar_t* text); // pixels, of the heading's font
    void InvalidateOverallBar();
    [[nodiscard]] RECT OverallBar() const;
    [[nodiscard]] RECT RowBar(int slot) const;

    bool Command(int id);
    void ViewLogs();
    void ShareLogs(bool canReconvert);
    [[nodiscard]] POINT FromDialogUnits(int x, int y) const;

    clConversion conversion;
    clOptionsMenu options;
    clTaskbarProgress taskbar;
    clProgressTexts shown; // as the controls show them
    bool isEnding = false; // EndConversion has begun
    int buttonRowY = 0;    // pixels; kept, since a minimised form has no client area to go by
    XArray<XIcon> effectIcons;
    XIcon encoderIcon;
    XIcon slotIcon;
    XFont textFont; // of the heading, and of what is drawn beside it
    clProgressBars overallBar{overallBarImages};
    clProgressBars rowBars{rowBarImages};
    frmErrorsInfo logs;
    XButtonGroup buttons;
    XButton cmdOptions;
    _cmdPause cmdPause{*this};
    _cmdCancel cmdCancel{*this};
    _cmdFinish cmdFinish{*this};
};
