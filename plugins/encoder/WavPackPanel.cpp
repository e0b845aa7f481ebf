// A list, a slider with words and a check box.
#include "plugins/encoder/WavPackPanel.h"

#include "plugins/encoder/WavPackOptions.h"

#include <iterator>

namespace {
constexpr const wchar_t* modeTexts[] = {L"Fast", L"Normal (recommended)", L"High", L"Very high"};
static_assert(std::size(modeTexts) == std::size(WavPackOption::modeWords));
constexpr const wchar_t* playing[] = {L"the easiest to play", L"easy to play", L"slower to play",
                                      L"slow to play, too"};
static_assert(std::size(playing) == std::size(modeTexts));
constexpr const wchar_t* extraTexts[] = {L"none", L"little",    L"some",   L"more",
                                         L"much", L"very slow", L"slowest"};
static_assert(std::size(extraTexts) == WavPackOption::mostExtra + 1);
} // namespace

void WavPackPanel::Fill(const SettingsText& settings) {
    using namespace WavPackOption;
    for (int i = 0; i < static_cast<int>(std::size(modeTexts)); ++i)
        AddItem(ID_WAVPACK_MODE, modeTexts[i], i);
    // The first word stands for all that are none, and is not the default.
    const bool isFast = settings.Value(L"mode").EqualsNoCase(modeWords[fast]);
    const int mode = settings.Word(L"mode", modeWords);
    ChooseItem(ID_WAVPACK_MODE, mode == fast && !isFast ? usualMode : mode);
    SetSlider(ID_WAVPACK_EXTRA, 0, mostExtra, settings.Number(L"extra", 0, mostExtra, 0));
    SetChecked(ID_WAVPACK_VERIFY, settings.Flag(L"verify"));
}

void WavPackPanel::Collect(SettingsText& settings) {
    using namespace WavPackOption;
    settings.Put(L"mode", modeWords[ChosenItem(ID_WAVPACK_MODE)], modeWords[usualMode]);
    settings.PutNumber(L"extra", Slider(ID_WAVPACK_EXTRA), 0);
    settings.PutFlag(L"verify", IsChecked(ID_WAVPACK_VERIFY));
}

void WavPackPanel::OnChanged(int) {
    const int extra = Slider(ID_WAVPACK_EXTRA);
    SetText(ID_WAVPACK_EXTRA_TEXT, DecimalText(extra) + L", " + extraTexts[extra]);
    XString summary = L"Keeps the sound bit by bit, floating point too; ";
    summary += playing[ChosenItem(ID_WAVPACK_MODE)];
    summary += L".";
    if (IsChecked(ID_WAVPACK_VERIFY))
        summary += L" A file that does not decode to its source counts as failed.";
    SetText(ID_SUMMARY, summary);
}
