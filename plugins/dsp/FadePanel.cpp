#include "plugins/dsp/FadePanel.h"

#include "plugins/dsp/Fader.h"
#include "plugins/dsp/PanelIds.h"

namespace {

constexpr wchar_t curveOption[] = L"curve";
constexpr const wchar_t* curveTexts[] = {L"Cosine (soft at both ends)", L"Linear",
                                         L"Logarithmic (even in dB)"};
constexpr NumberField in = {ID_FADE_IN, L"in", 0, fadeLongestMs, fadeMs};
constexpr NumberField out = {ID_FADE_OUT, L"out", 0, fadeLongestMs, fadeMs};

} // namespace

FadePanel::FadePanel() noexcept : NumberPanel(ID_PANEL) {}

void FadePanel::Fill(const SettingsText& settings) {
    FillNumber(settings, in);
    FillNumber(settings, out);
    FillChoice(settings, ID_FADE_CURVE, curveOption, fadeCurveWords, curveTexts);
}

void FadePanel::Collect(SettingsText& settings) {
    CollectNumber(settings, in);
    CollectNumber(settings, out);
    CollectChoice(settings, ID_FADE_CURVE, curveOption, fadeCurveWords);
}

void FadePanel::OnChanged(int) {
    const bool fadesIn = Number(in) > 0, fadesOut = Number(out) > 0;
    XString summary = fadesIn ? L"The first " + Seconds(in) : XString();
    if (fadesOut)
        summary += (fadesIn ? L" fade in, the last " : L"The last ") + Seconds(out) + L" fade out.";
    else
        summary += fadesIn ? L" fade in." : L"Nothing is faded.";
    SetText(ID_SUMMARY, summary);
}
