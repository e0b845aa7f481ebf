#include "plugins/dsp/ChannelsPanel.h"

#include "plugins/dsp/ChannelMixer.h"
#include "plugins/dsp/PanelIds.h"

namespace {

constexpr wchar_t option[] = L"to";
constexpr const wchar_t* texts[] = {L"Stereo", L"Mono", L"Left and right exchanged", L"Left channel only",
                                    L"Right channel only"};
constexpr const wchar_t* summaries[] = {
    L"Surround sound is mixed down to two channels, without the low-frequency channel and as quiet as it "
    L"must be never to clip. Mono sources sound on both sides.",
    L"All channels are mixed into one, without the low-frequency channel and as quiet as it must be never "
    L"to clip.",
    L"Left and right channels change places, those of surround sound, too.",
    L"The left channel, or the front left one of surround sound, becomes a mono file.",
    L"The right channel, or the front right one of surround sound, becomes a mono file.",
};

} // namespace

ChannelsPanel::ChannelsPanel() noexcept : NumberPanel(ID_PANEL) {}

void ChannelsPanel::Fill(const SettingsText& settings) {
    FillChoice(settings, ID_CHANNELS, option, channelWords, texts);
}

void ChannelsPanel::Collect(SettingsText& settings) {
    CollectChoice(settings, ID_CHANNELS, option, channelWords);
}

void ChannelsPanel::OnChanged(int) {
    SetText(ID_SUMMARY, summaries[ChosenItem(ID_CHANNELS)]);
}
