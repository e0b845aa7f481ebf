// Rates and channels of a hand-written settings text join the lists.
#include "plugins/encoder/PcmPanel.h"

#include "plugins/encoder/PcmOptions.h"

#include <iterator>

namespace {

struct Format {
    const wchar_t* text;
    int bytes;
};

constexpr const wchar_t* formatWords[] = {PcmOption::source, L"8", L"16", L"24", L"32", L"float"};
constexpr Format formats[] = {{L"As the source", 0}, {L"8 bit", 1},  {L"16 bit", 2},
                              {L"24 bit", 3},        {L"32 bit", 4}, {L"32 bit floating point", 4}};
static_assert(std::size(formatWords) == std::size(formats));

constexpr int usualRates[] = {8000,  11025, 16000, 22050,  32000,  44100,
                              48000, 88200, 96000, 176400, 192000, 384000};
constexpr const wchar_t* channelTexts[] = {L"As the source", L"Mono", L"Stereo"};

// 0 is "as the source" in both lists.
XString ChannelText(int channels) {
    return channels < static_cast<int>(std::size(channelTexts)) ? XString(channelTexts[channels])
                                                                : DecimalText(channels) + L" channels";
}

XString NumberOrSource(int number) {
    return number == 0 ? XString(PcmOption::source) : DecimalText(number);
}

XString Summary(int format, int rate, int channels) {
    if (format == 0)
        return L"Sources coded with loss, such as mp3, become 16 bit; all others keep their sample format.";
    if (rate == 0 || channels == 0)
        return L"What is set to \"As the source\" is taken from each file.";
    XString text, size;
    size.FromReal(60.0 * rate * channels * formats[format].bytes / 1e6, 1, true);
    text.Format(L"%s, %d Hz, ", formats[format].text, rate);
    XString places = ChannelText(channels);
    return text + places.Lower() + L": " + size + L" MB a minute";
}

} // namespace

void PcmPanel::Fill(const SettingsText& settings) {
    const int rate = settings.Number(L"rate", PcmOption::lowestRate, PcmOption::highestRate, 0);
    const int channels = settings.Number(L"channels", 1, PcmOption::mostChannels, 0);
    for (int i = 0; i < static_cast<int>(std::size(formats)); ++i)
        AddItem(ID_PCM_FORMAT, formats[i].text, i);
    AddItem(ID_PCM_RATE, L"As the source", 0);
    AddNumbers(ID_PCM_RATE, usualRates, rate, L" Hz");
    for (int i = 0; i < static_cast<int>(std::size(channelTexts)); ++i)
        AddItem(ID_PCM_CHANNELS, ChannelText(i), i);
    if (!HasItem(ID_PCM_CHANNELS, channels))
        AddItem(ID_PCM_CHANNELS, ChannelText(channels), channels);
    ChooseItem(ID_PCM_FORMAT, settings.Word(L"format", formatWords));
    ChooseItem(ID_PCM_RATE, rate);
    ChooseItem(ID_PCM_CHANNELS, channels);
}

void PcmPanel::Collect(SettingsText& settings) {
    settings.Put(L"format", formatWords[ChosenItem(ID_PCM_FORMAT)], PcmOption::source);
    settings.Put(L"rate", NumberOrSource(ChosenItem(ID_PCM_RATE)), PcmOption::source);
    settings.Put(L"channels", NumberOrSource(ChosenItem(ID_PCM_CHANNELS)), PcmOption::source);
}

void PcmPanel::OnChanged(int) {
    SetText(ID_SUMMARY,
            Summary(ChosenItem(ID_PCM_FORMAT), ChosenItem(ID_PCM_RATE), ChosenItem(ID_PCM_CHANNELS)));
}
