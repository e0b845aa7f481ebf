// Two lists, and what they come to. Bit rates of a hand-written settings text join the list.
#include "plugins/encoder/AacPanel.h"

#include "plugins/encoder/AacOptions.h"

#include <iterator>

namespace {
constexpr int usualRates[] = {64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 400};
constexpr const wchar_t* channelTexts[] = {L"As the source", L"Mono", L"Stereo"};
constexpr const wchar_t* channelWords[] = {L"source", L"1", L"2"};
static_assert(std::size(channelTexts) == std::size(channelWords));

XString MinuteText(int kbits) {
    XString size;
    size.FromReal(kbits * 60 / 8000.0, 1, true);
    return DecimalText(kbits) + L" kbit/s, " + size + L" MB a minute";
}
} // namespace

void AacPanel::Fill(const SettingsText& settings) {
    const int rate =
        settings.Number(L"bitrate", AacOption::lowestRate, AacOption::highestRate, AacOption::usualRate);
    AddNumbers(ID_AAC_RATE, usualRates, rate, L" kbit/s");
    ChooseItem(ID_AAC_RATE, rate);
    for (int i = 0; i < static_cast<int>(std::size(channelTexts)); ++i)
        AddItem(ID_AAC_CHANNELS, channelTexts[i], i);
    ChooseItem(ID_AAC_CHANNELS, settings.Word(L"channels", channelWords));
}

void AacPanel::Collect(SettingsText& settings) {
    settings.PutNumber(L"bitrate", ChosenItem(ID_AAC_RATE), AacOption::usualRate);
    settings.Put(L"channels", channelWords[ChosenItem(ID_AAC_CHANNELS)], channelWords[0]);
}

void AacPanel::OnChanged(int) {
    const int rate = ChosenItem(ID_AAC_RATE), channels = ChosenItem(ID_AAC_CHANNELS);
    XString text = L"Constant bit rate: ";
    if (channels != 0)
        text += XString(channels == 1 ? L"mono, " : L"stereo, ") + MinuteText(rate * channels / 2);
    else
        text += L"stereo gets " + MinuteText(rate) + L"; mono gets " + DecimalText(rate / 2) + L", 5.1 " +
                DecimalText(rate * 3) + L" kbit/s.";
    SetText(ID_SUMMARY, text);
}
