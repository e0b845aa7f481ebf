// The panel of "ReplayGain".
#pragma once

#include "plugins/dsp/NumberPanel.h"

class ReplayGainPanel final : public NumberPanel {
public:
    ReplayGainPanel() noexcept;

protected:
    void Fill(const SettingsText& settings) override;
    void Collect(SettingsText& settings) override;
    void OnChanged(int id) override;
};
