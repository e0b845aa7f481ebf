// The panel of "Channels".
#pragma once

#include "plugins/dsp/NumberPanel.h"

class ChannelsPanel final : public NumberPanel {
public:
    ChannelsPanel() noexcept;

protected:
    void Fill(const SettingsText& settings) override;
    void Collect(SettingsText& settings) override;
    void OnChanged(int id) override;
};
