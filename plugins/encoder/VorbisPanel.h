// The panel of "Ogg Vorbis": a quality or an average bit rate.
#pragma once

#include "plugins/common/PanelWindow.h"
#include "plugins/encoder/PanelIds.h"
#include "plugins/encoder/VorbisOptions.h"

class VorbisPanel final : public PanelWindow {
public:
    VorbisPanel() noexcept : PanelWindow(ID_PANEL) {}

protected:
    void Fill(const SettingsText& settings) override;
    void Collect(SettingsText& settings) override;
    void OnChanged(int id) override;

private:
    [[nodiscard]] VorbisChoice Shown() const;
    void ShowKind();
};
