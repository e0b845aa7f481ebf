#include "plugins/dsp/ReplayGainPanel.h"

#include "plugins/dsp/PanelIds.h"
#include "plugins/dsp/ReplayGainTags.h"

namespace {

constexpr wchar_t albumOption[] = L"album", peakOption[] = L"peak";
constexpr const wchar_t* albumTexts[] = {L"Outputs with the same album in their tags",
                                         L"Outputs in the same folder", L"All outputs of a batch",
                                         L"None: track gain only"};
constexpr const wchar_t* peakTexts[] = {L"Highest sample", L"True peak, between samples, too"};
constexpr const wchar_t* summaries[] = {
    L"Album gain is written into every output that names an album. Without an album artist, the outputs "
    L"of one album stand in one folder.",
    L"Album gain is written into every output, for those in its folder.",
    L"Album gain is written into every output, the same for all of a batch.",
    L"Only track gain is written. Album gains of the sources are left out.",
};

} // namespace

ReplayGainPanel::ReplayGainPanel() noexcept : NumberPanel(ID_PANEL) {}

void ReplayGainPanel::Fill(const SettingsText& settings) {
    FillChoice(settings, ID_GAIN_ALBUM, albumOption, albumWords, albumTexts);
    FillChoice(settings, ID_GAIN_PEAK, peakOption, peakWords, peakTexts);
}

void ReplayGainPanel::Collect(SettingsText& settings) {
    CollectChoice(settings, ID_GAIN_ALBUM, albumOption, albumWords);
    CollectChoice(settings, ID_GAIN_PEAK, peakOption, peakWords);
}

void ReplayGainPanel::OnChanged(int) {
    SetText(ID_SUMMARY, summaries[ChosenItem(ID_GAIN_ALBUM)]);
}
