// Rates of a hand-written settings text join the list.
#include "plugins/dsp/ResamplePanel.h"

#include "plugins/dsp/PanelIds.h"
#include "plugins/dsp/ResampleOptions.h"

namespace {

constexpr int usualRates[] = {8000,  11025, 16000, 22050,  32000,  44100,
                              48000, 88200, 96000, 176400, 192000, 384000};
constexpr const wchar_t* qualityTexts[] = {L"Very high", L"High (faster)"};
constexpr const wchar_t* bitsTexts[] = {L"As the source", L"16 bit", L"24 bit", L"32 bit",
                                        L"32 bit floating point"};
constexpr const wchar_t* ditherTexts[] = {L"Triangular (even noise)", L"Shaped (quieter to the ear)",
                                          L"None"};
constexpr const wchar_t* onlyTexts[] = {L"All files", L"Files above it, and never up"};
constexpr wchar_t rateOption[] = L"rate", sourceWord[] = L"source";

XString NumberOrSource(int number) {
    return number == 0 ? XString(sourceWord) : DecimalText(number);
}

} // namespace

ResamplePanel::ResamplePanel() noexcept : NumberPanel(ID_PANEL) {}

void ResamplePanel::Fill(const SettingsText& settings) {
    const int rate = settings.Value(rateOption).EqualsNoCase(sourceWord)
                         ? 0
                         : settings.Number(rateOption, resampleLowestRate, resampleHighestRate, resampleRate);
    AddItem(ID_RESAMPLE_RATE, L"As the source", 0);
    AddNumbers(ID_RESAMPLE_RATE, usualRates, rate, L" Hz");
    ChooseItem(ID_RESAMPLE_RATE, rate);
    FillChoice(settings, ID_RESAMPLE_QUALITY, L"quality", resampleQualityWords, qualityTexts);
    FillChoice(settings, ID_RESAMPLE_BITS, L"bits", resampleBitsWords, bitsTexts);
    FillChoice(settings, ID_RESAMPLE_DITHER, L"dither", resampleDitherWords, ditherTexts);
    FillChoice(settings, ID_RESAMPLE_ONLY, L"only", resampleOnlyWords, onlyTexts);
}

void ResamplePanel::Collect(SettingsText& settings) {
    settings.Put(rateOption, NumberOrSource(ChosenItem(ID_RESAMPLE_RATE)), DecimalText(resampleRate));
    CollectChoice(settings, ID_RESAMPLE_QUALITY, L"quality", resampleQualityWords);
    CollectChoice(settings, ID_RESAMPLE_BITS, L"bits", resampleBitsWords);
    CollectChoice(settings, ID_RESAMPLE_DITHER, L"dither", resampleDitherWords);
    CollectChoice(settings, ID_RESAMPLE_ONLY, L"only", resampleOnlyWords);
}

void ResamplePanel::OnChanged(int) {
    const int rate = ChosenItem(ID_RESAMPLE_RATE), bits = ChosenItem(ID_RESAMPLE_BITS);
    const bool onlyDown = ChosenItem(ID_RESAMPLE_ONLY) == 1;
    if (rate == 0 && bits == 0) {
        SetText(ID_SUMMARY, L"Nothing is changed.");
        return;
    }
    XString goal = rate == 0 ? XString() : DecimalText(rate) + L" Hz";
    if (bits != 0)
        goal += (goal.IsEmpty() ? L"" : L" and ") + XString(bitsTexts[bits]);
    SetText(ID_SUMMARY,
            onlyDown
                ? L"What is above " + goal + L" is brought down to it. All else stays as it is."
                : L"Every file is brought to " + goal + L". What has it already stays as it is, bit by bit.");
}
