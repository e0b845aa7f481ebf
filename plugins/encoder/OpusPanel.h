// The panel of "Opus": bit rate, how it may vary, and how hard the encoder tries.
#pragma once

#include "plugins/common/PanelWindow.h"
#include "plugins/encoder/PanelIds.h"

class OpusPanel final : public PanelWindow {
public:
    OpusPanel() noexcept : PanelWindow(ID_PANEL) {}

protected:
    void Fill(const SettingsText& settings) override;
    void Collect(SettingsText& settings) override;
    void OnChanged(int id) override;
};
