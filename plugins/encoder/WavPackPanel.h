// The panel of "WavPack": how hard it tries, and whether it checks its own work.
#pragma once

#include "plugins/common/PanelWindow.h"
#include "plugins/encoder/PanelIds.h"

class WavPackPanel final : public PanelWindow {
public:
    WavPackPanel() noexcept : PanelWindow(ID_PANEL) {}

protected:
    void Fill(const SettingsText& settings) override;
    void Collect(SettingsText& settings) override;
    void OnChanged(int id) override;
};
