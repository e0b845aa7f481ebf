// A list with words, and what they come to.
#include "plugins/encoder/AlacPanel.h"

#include "plugins/encoder/AlacOptions.h"

#include <iterator>

namespace {
constexpr const wchar_t* formatTexts[] = {L"As the source", L"16 bit", L"24 bit"};
constexpr const wchar_t* summaries[] = {
    L"Sources of up to 24 bit are kept bit by bit. More bits and floating point become 24 bit; what was "
    L"coded with loss becomes 16 bit.",
    L"Every file gets 16 bit: sources of more bits lose some of them.",
    L"Every file gets 24 bit: sources of up to 24 bit are kept bit by bit."};
static_assert(std::size(formatTexts) == std::size(AlacOption::formatWords));
static_assert(std::size(formatTexts) == std::size(summaries));
} // namespace

void AlacPanel::Fill(const SettingsText& settings) {
    for (int i = 0; i < static_cast<int>(std::size(formatTexts)); ++i)
        AddItem(ID_ALAC_FORMAT, formatTexts[i], i);
    ChooseItem(ID_ALAC_FORMAT, settings.Word(L"format", AlacOption::formatWords));
}

void AlacPanel::Collect(SettingsText& settings) {
    settings.Put(L"format", AlacOption::formatWords[ChosenItem(ID_ALAC_FORMAT)], AlacOption::formatWords[0]);
}

void AlacPanel::OnChanged(int) {
    SetText(ID_SUMMARY, summaries[ChosenItem(ID_ALAC_FORMAT)]);
}
