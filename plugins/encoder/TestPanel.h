// The panel of "Test Conversion": which checksums the information log is to hold.
#pragma once

#include "plugins/common/PanelWindow.h"
#include "plugins/encoder/PanelIds.h"

class TestPanel final : public PanelWindow {
public:
    TestPanel() noexcept : PanelWindow(ID_PANEL) {}

protected:
    void Fill(const SettingsText& settings) override;
    void Collect(SettingsText& settings) override;
};
