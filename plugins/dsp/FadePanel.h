// The panel of "Fade".
#pragma once

#include "plugins/dsp/NumberPanel.h"

class FadePanel final : public NumberPanel {
public:
    FadePanel() noexcept;

protected:
    void Fill(const SettingsText& settings) override;
    void Collect(SettingsText& settings) override;
    void OnChanged(int id) override;
};
