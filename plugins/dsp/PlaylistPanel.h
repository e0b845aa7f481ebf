// The panel of "Playlist Writer": name or path of the playlist, and the kind of paths in it.
#pragma once

#include "plugins/dsp/FilePanel.h"

class PlaylistPanel final : public FilePanel {
public:
    PlaylistPanel() noexcept;

protected:
    void Fill(const SettingsText& settings) override;
    void Collect(SettingsText& settings) override;
    void OnChanged(int id) override;
};
