// The panel of "Volume".
#pragma once

#include "plugins/dsp/NumberPanel.h"
#include "plugins/dsp/VolumeChoice.h"

class VolumePanel final : public NumberPanel {
public:
    VolumePanel() noexcept;

protected:
    void Fill(const SettingsText& settings) override;
    void Collect(SettingsText& settings) override;
    void OnChanged(int id) override;

private:
    [[nodiscard]] VolumeMode Mode() const;
    // What an edit control says, as the effect will take it.
    [[nodiscard]] double Value(VolumeMode mode) const;
    [[nodiscard]] double Limit() const;
    void ShowMode(VolumeMode mode) const; // with its usual values
    [[nodiscard]] XString Summary() const;
};
