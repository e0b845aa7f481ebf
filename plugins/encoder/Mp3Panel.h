// The panel of "mp3 (Lame)": the kind of bit rate, its value and the channels.
#pragma once

#include "plugins/common/PanelWindow.h"
#include "plugins/encoder/Mp3Options.h"
#include "plugins/encoder/PanelIds.h"

class Mp3Panel final : public PanelWindow {
public:
    Mp3Panel() noexcept : PanelWindow(ID_PANEL) {}

protected:
    void Fill(const SettingsText& settings) override;
    void Collect(SettingsText& settings) override;
    void OnChanged(int id) override;

private:
    [[nodiscard]] Mp3Choice Shown() const;
    [[nodiscard]] XString Summary() const;
    void ShowRates();

    int abr = 0; // kbit/s, each remembered while the other is shown
    int cbr = 0;
    int listed = 0; // the radio button whose rates the list has
};
