#include "plugins/dsp/PlaylistPanel.h"

#include "plugins/dsp/PanelIds.h"
#include "plugins/dsp/PlaylistText.h"

namespace {
constexpr FilePanelTexts playlistTexts = {L"Playlist Writer", L"Playlists\0*.m3u8;*.m3u\0All files\0*.*\0",
                                          L"m3u8", playlistDefaultName};
}

PlaylistPanel::PlaylistPanel() noexcept : FilePanel(playlistTexts) {}

void PlaylistPanel::Fill(const SettingsText& settings) {
    FilePanel::Fill(settings);
    SetChecked(ID_PLAYLIST_ABSOLUTE, settings.Flag(L"absolute"));
}

void PlaylistPanel::Collect(SettingsText& settings) {
    FilePanel::Collect(settings);
    settings.PutFlag(L"absolute", IsChecked(ID_PLAYLIST_ABSOLUTE));
}

void PlaylistPanel::OnChanged(int id) {
    FilePanel::OnChanged(id);
    XString summary = L"When a batch has ended, its outputs are listed in this playlist. ";
    const XString file = Path();
    if (file.FindChar(L'\\') == 0 && file.FindChar(L'/') == 0)
        summary += L"A name without a folder stands beside them. ";
    summary += IsChecked(ID_PLAYLIST_ABSOLUTE) ? L"It plays as long as the files stay where they are."
                                               : L"It still plays when it is moved together with the files.";
    SetText(ID_SUMMARY, summary);
}
