// The panel of "Multi-CPU Force": a box for each processor.
#pragma once

#include "plugins/common/PanelWindow.h"

class MultiCpuPanel final : public PanelWindow {
public:
    MultiCpuPanel() noexcept;

protected:
    void Fill(const SettingsText& settings) override;
    void Collect(SettingsText& settings) override;
    void OnChanged(int id) override;
};
