// A slider with words and a check box.
#include "plugins/encoder/FlacPanel.h"

#include "plugins/encoder/FlacOptions.h"

#include <iterator>

namespace {
constexpr const wchar_t* levelTexts[] = {L"fastest",    L"very fast",  L"fast",
                                         L"quite fast", L"balanced",   L"recommended",
                                         L"small",      L"very small", L"smallest"};
static_assert(std::size(levelTexts) == FlacOption::highestLevel + 1);
} // namespace

void FlacPanel::Fill(const SettingsText& settings) {
    SetSlider(ID_FLAC_LEVEL, 0, FlacOption::highestLevel,
              settings.Number(L"level", 0, FlacOption::highestLevel, FlacOption::usualLevel));
    SetChecked(ID_FLAC_VERIFY, settings.Flag(L"verify"));
}

void FlacPanel::Collect(SettingsText& settings) {
    settings.PutNumber(L"level", Slider(ID_FLAC_LEVEL), FlacOption::usualLevel);
    settings.PutFlag(L"verify", IsChecked(ID_FLAC_VERIFY));
}

void FlacPanel::OnChanged(int) {
    const int level = Slider(ID_FLAC_LEVEL);
    const XString levelText = L"Level " + DecimalText(level) + L", " + levelTexts[level];
    SetText(ID_FLAC_LEVEL_TEXT, levelText);
    XString summary = L"Every level keeps the sound bit by bit; music comes to about 60 % of a wave file.";
    if (IsChecked(ID_FLAC_VERIFY))
        summary += L" A file that does not decode to its source counts as failed.";
    SetText(ID_SUMMARY, summary);
}
