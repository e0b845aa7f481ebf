// Two lists and a slider with words.
#include "plugins/encoder/OpusPanel.h"

#include "plugins/encoder/OpusOptions.h"

#include <iterator>

namespace {

constexpr int rates[] = {16, 24, 32, 48, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384, 448, 510};
constexpr const wchar_t* modeTexts[] = {L"Variable (recommended)", L"Variable within limits, for streaming",
                                        L"Constant"};
static_assert(std::size(modeTexts) == std::size(OpusOption::modeWords));

struct Grade {
    int rate; // from here on, kbit/s for stereo
    const wchar_t* text;
};
constexpr Grade grades[] = {{160, L"Music can't be told from its source."},
                            {96, L"Music is hard to tell from its source."},
                            {64, L"Good for music to go."},
                            {32, L"Good for speech, fair for music."},
                            {0, L"For speech."}};

const wchar_t* GradeOf(int rate) noexcept {
    for (const Grade& grade : grades)
        if (rate >= grade.rate)
            return grade.text;
    return L"";
}

const wchar_t* EffortText(int effort) noexcept {
    return effort == 0                       ? L"fastest"
           : effort < 5                      ? L"fast"
           : effort < OpusOption::mostEffort ? L"thorough"
                                             : L"best sound";
}

} // namespace

void OpusPanel::Fill(const SettingsText& settings) {
    using namespace OpusOption;
    const int rate = settings.Number(L"bitrate", lowestRate, highestRate, usualRate);
    AddNumbers(ID_OPUS_RATE, rates, rate, L" kbit/s");
    ChooseItem(ID_OPUS_RATE, rate);
    for (int i = 0; i < static_cast<int>(std::size(modeTexts)); ++i)
        AddItem(ID_OPUS_MODE, modeTexts[i], i);
    ChooseItem(ID_OPUS_MODE, settings.Word(L"mode", modeWords));
    SetSlider(ID_OPUS_EFFORT, 0, mostEffort, settings.Number(L"complexity", 0, mostEffort, mostEffort));
}

void OpusPanel::Collect(SettingsText& settings) {
    using namespace OpusOption;
    settings.PutNumber(L"bitrate", ChosenItem(ID_OPUS_RATE), usualRate);
    settings.Put(L"mode", modeWords[ChosenItem(ID_OPUS_MODE)], modeWords[0]);
    settings.PutNumber(L"complexity", Slider(ID_OPUS_EFFORT), mostEffort);
}

void OpusPanel::OnChanged(int) {
    const int rate = ChosenItem(ID_OPUS_RATE), effort = Slider(ID_OPUS_EFFORT);
    SetText(ID_OPUS_EFFORT_TEXT, DecimalText(effort) + L", " + EffortText(effort));
    XString about = ChosenItem(ID_OPUS_MODE) == OpusOption::constant ? L"" : L"about ";
    SetText(ID_SUMMARY, L"Stereo gets " + about + DecimalText(rate) + L" kbit/s, mono " +
                            DecimalText(OpusOption::WholeRate(rate, 1)) + L", 5.1 " +
                            DecimalText(OpusOption::WholeRate(rate, 6)) + L". " + GradeOf(rate));
}
