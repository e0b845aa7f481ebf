// The form that the user watches during a conversion. It owns the engine and is its clock: a timer
// of 50 ms drives every step. It shows and collects; what happens is decided by the engine.
#pragma once

#include "engine/Conversion.h"
#include "forms/converting/OptionsMenu.h"
#include "forms/converting/TaskbarProgress.h"
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
    void OnInit() override;
    void OnDestroy() override;
    void OnTimer(std::uint64_t id, std::uint64_t data) override;
    LRESULT PreMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam,
                       std::uint32_t& handled) override;

private:
    // A push button on the form's button row.
    class _Button {
    public:
        void Make(frmConverting& owner, int id, const wchar_t* caption, int dialogX, DWORD style = 0);
        void Remove();
        HWND Window = nullptr;

    protected:
        frmConverting* form = nullptr;
    };
    class _cmdPause final : public _Button {
    public:
        void OnClick();
        void SetDown(bool down); // the look only
    };
    class _cmdCancel final : public _Button {
    public:
        void OnClick();
    };
    class _cmdFinish final : public _Button {
    public:
        void OnClick();
    };

    // Initialisation
    void LoadIcons();
    void LoadEffectIcons();
    void SetCaption();
    void HideSurplusRows();
    void SizeToRows();
    void PlaceWindow();
    void MakeButtons();

    // The timer step and what follows conversion
    void TimerStep();
    void ShowReport(const clTickReport& report);
    void ShowTexts();
    void ShowHeading(const wchar_t* text);
    void ShowRowTexts(std::uint32_t slots); // bit k: slot k
    void FinishBatch();
    void EndConversion();
    void SavePosition();
    [[nodiscard]] bool AskOverwrite(XArray<clOverwriteItem>& items);

    // Drawing
    void Paint();
    void PaintEffects(HDC dc);
    void PlaceHeading();
    void InvalidateOverallBar();
    [[nodiscard]] RECT OverallBar() const;
    [[nodiscard]] RECT RowBar(int slot) const;

    bool Command(int id);
    void ShowOptions();
    [[nodiscard]] POINT FromDialogUnits(int x, int y) const;
    [[nodiscard]] int ButtonRowY() const; // pixels

    clConversion conversion;
    clOptionsMenu options;
    clTaskbarProgress taskbar;
    clProgressTexts shown; // as the controls show them
    bool isEnding = false; // EndConversion has begun
    XArray<XIcon> effectIcons;
    XIcon encoderIcon;
    XIcon slotIcon;
    XGdiObject textFont; // of the heading, and of what is drawn beside it
    _Button cmdOptions;
    _cmdPause cmdPause;
    _cmdCancel cmdCancel;
    _cmdFinish cmdFinish;
};
