// The panel of "Delete Source File".
#pragma once

#include "plugins/common/PanelWindow.h"

class DeletePanel final : public PanelWindow {
public:
    DeletePanel() noexcept;

protected:
    void Fill(const SettingsText& settings) override;
    void Collect(SettingsText& settings) override;
};
