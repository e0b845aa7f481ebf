// The panel of "Trim Silence".
#pragma once

#include "plugins/dsp/NumberPanel.h"

class TrimPanel final : public NumberPanel {
public:
    TrimPanel() noexcept;

protected:
    void Fill(const SettingsText& settings) override;
    void Collect(SettingsText& settings) override;
    void OnChanged(int id) override;
};
