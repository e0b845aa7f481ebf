// The panel of the libraries that write PCM: sample format, rate and channels, each as the source has it or
// fixed.
#pragma once

#include "plugins/common/PanelWindow.h"
#include "plugins/encoder/PanelIds.h"

class PcmPanel final : public PanelWindow {
public:
    PcmPanel() noexcept : PanelWindow(ID_PANEL) {}

protected:
    void Fill(const SettingsText& settings) override;
    void Collect(SettingsText& settings) override;
    void OnChanged(int id) override;
};
