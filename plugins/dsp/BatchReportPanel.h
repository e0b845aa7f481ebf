// The panel of "Batch Report": the path of the report.
#pragma once

#include "plugins/common/PanelWindow.h"
#include "plugins/dsp/PanelIds.h"

class BatchReportPanel final : public PanelWindow {
public:
    BatchReportPanel() noexcept : PanelWindow(ID_PANEL) {}

protected:
    void Fill(const SettingsText& settings) override;
    void Collect(SettingsText& settings) override;
    void OnChanged(int id) override;

private:
    XString filled; // the path as the control showed it first
};
