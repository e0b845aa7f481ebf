// The panel of "Resample".
#pragma once

#include "plugins/dsp/NumberPanel.h"

class ResamplePanel final : public NumberPanel {
public:
    ResamplePanel() noexcept;

protected:
    void Fill(const SettingsText& settings) override;
    void Collect(SettingsText& settings) override;
    void OnChanged(int id) override;
};
