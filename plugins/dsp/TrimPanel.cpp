#include "plugins/dsp/TrimPanel.h"

#include "plugins/dsp/PanelIds.h"
#include "plugins/dsp/SilenceTrimmer.h"

namespace {

constexpr wchar_t placeOption[] = L"at";
constexpr const wchar_t* placeTexts[] = {L"At the start and at the end", L"At the start", L"At the end"};
constexpr NumberField threshold = {ID_TRIM_THRESHOLD, L"threshold", 1, trimHighestThreshold, trimThreshold};
constexpr NumberField minimum = {ID_TRIM_MINIMUM, L"minimum", 0, trimLongestMs, 0};
constexpr NumberField keep = {ID_TRIM_KEEP, L"keep", 0, trimLongestMs, 0};

} // namespace

TrimPanel::TrimPanel() noexcept : NumberPanel(ID_PANEL) {}

void TrimPanel::Fill(const SettingsText& settings) {
    FillChoice(settings, ID_TRIM_AT, placeOption, trimPlaceWords, placeTexts);
    for (const NumberField& field : {threshold, minimum, keep})
        FillNumber(settings, field);
}

void TrimPanel::Collect(SettingsText& settings) {
    for (const NumberField& field : {threshold, minimum, keep})
        CollectNumber(settings, field);
    CollectChoice(settings, ID_TRIM_AT, placeOption, trimPlaceWords);
}

void TrimPanel::OnChanged(int) {
    XString summary = L"What is not louder than -" + DecimalText(Number(threshold)) + L" dB is cut off";
    if (Number(minimum) > 0)
        summary += L" if it lasts " + Seconds(minimum) + L" or longer";
    if (Number(keep) > 0)
        summary += L"; " + Seconds(keep) + L" of it stays";
    SetText(ID_SUMMARY, summary + L". A file of nothing but silence is an error.");
}
