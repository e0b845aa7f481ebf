// The dialog that shows the settings panel of one effect. There is no way to leave it without taking
// what the panel shows: the close box does what "OK" does.
#pragma once

#include "host/clZtDSP.h"
#include "toolkit/XWindow.h"

class EffectSettingsDialog final : public XWindow {
public:
    // Shows the dialog and returns when it has closed. A library that is missing or fails gives an
    // empty dialog.
    EffectSettingsDialog(HWND parent, const XString& libraryPath, const XString& settings);
    ~EffectSettingsDialog() override;

    void OnClose() override;
    void OnDestroy() override;
    void OnShow(LPARAM reason) override;
    void OnOK() override;

    XString LibraryPath;
    clZtDSP Effect;   // bound while the dialog is up
    XString Settings; // to begin with, then what the panel gave back; empty without a panel

private:
    void ShowPanel();
    void FocusFirst() const;
    void EndPanel();

    bool isFilled = false;
};

// The settings after the dialog.
[[nodiscard]] XString ShowEffectSettings(HWND parent, const XString& libraryPath, const XString& settings);
