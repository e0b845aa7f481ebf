// The list of rates serves both kinds that have one; the slider shows better sound to the right.
#include "plugins/encoder/Mp3Panel.h"

#include <iterator>

namespace {

constexpr int usualAbr = 192;
constexpr int usualCbr = 192;
// Those of layer III at 32 kHz and up; the average may lie anywhere.
constexpr int cbrRates[] = {32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
constexpr int abrRates[] = {32, 48, 64, 80, 96, 112, 128, 144, 160, 176, 192, 208, 224, 256, 288, 310};
constexpr const wchar_t* modeTexts[] = {L"Joint stereo (recommended)", L"Separate stereo", L"Mono"};
constexpr const wchar_t* modeSummaries[] = {L"stereo", L"stereo, coded separately", L"mono"};
constexpr const wchar_t* qualityTexts[] = {L"highest",     L"very high", L"very high",  L"high", L"high",
                                           L"medium high", L"medium",    L"medium low", L"low",  L"lowest"};
static_assert(std::size(modeTexts) == std::size(Mp3Option::modeWords));
static_assert(std::size(qualityTexts) == Mp3Option::lowestQuality + 1);

} // namespace

void Mp3Panel::Fill(const SettingsText& settings) {
    using namespace Mp3Option;
    // Of texts that name several kinds one is taken, in this order.
    cbr = settings.Number(L"cbr", lowestCbr, highestCbr, 0);
    abr = settings.Number(L"abr", lowestAbr, highestAbr, 0);
    SetChecked(cbr ? ID_MP3_CBR : abr ? ID_MP3_ABR : ID_MP3_VBR, true);
    cbr = cbr ? cbr : usualCbr;
    abr = abr ? abr : usualAbr;
    listed = 0;
    SetSlider(ID_MP3_QUALITY, 0, lowestQuality,
              lowestQuality - settings.Number(L"vbr", 0, lowestQuality, usualQuality));
    for (int i = 0; i < static_cast<int>(std::size(modeTexts)); ++i)
        AddItem(ID_MP3_MODE, modeTexts[i], i);
    ChooseItem(ID_MP3_MODE, settings.Word(L"mode", modeWords));
}

Mp3Choice Mp3Panel::Shown() const {
    Mp3Choice choice;
    choice.cbr = IsChecked(ID_MP3_CBR) ? cbr : 0;
    choice.abr = IsChecked(ID_MP3_ABR) ? abr : 0;
    choice.vbr = choice.cbr || choice.abr ? -1 : Mp3Option::lowestQuality - Slider(ID_MP3_QUALITY);
    choice.mode = static_cast<Mp3Mode>(ChosenItem(ID_MP3_MODE));
    return choice;
}

void Mp3Panel::Collect(SettingsText& settings) {
    const Mp3Choice choice = Shown();
    if (choice.cbr)
        settings.PutNumber(L"cbr", choice.cbr, 0);
    else
        settings.Remove(L"cbr");
    if (choice.abr)
        settings.PutNumber(L"abr", choice.abr, 0);
    else
        settings.Remove(L"abr");
    if (choice.vbr >= 0)
        settings.PutNumber(L"vbr", choice.vbr, Mp3Option::usualQuality);
    else
        settings.Remove(L"vbr");
    settings.Put(L"mode", Mp3Option::modeWords[static_cast<int>(choice.mode)], Mp3Option::modeWords[0]);
}

// Shows the slider or the list, whose rates are those of the chosen kind.
void Mp3Panel::ShowRates() {
    const int kind = IsChecked(ID_MP3_CBR) ? ID_MP3_CBR : IsChecked(ID_MP3_ABR) ? ID_MP3_ABR : ID_MP3_VBR;
    if (kind == listed)
        return;
    listed = kind;
    const bool hasRate = kind != ID_MP3_VBR;
    for (const int id : {ID_MP3_QUALITY_LABEL, ID_MP3_QUALITY, ID_MP3_QUALITY_LOW, ID_MP3_QUALITY_HIGH})
        ShowWindow(Control(id), hasRate ? SW_HIDE : SW_SHOWNA);
    for (const int id : {ID_MP3_RATE_LABEL, ID_MP3_RATE})
        ShowWindow(Control(id), hasRate ? SW_SHOWNA : SW_HIDE);
    SendMessageW(Control(ID_MP3_RATE), CB_RESETCONTENT, 0, 0);
    if (kind == ID_MP3_CBR)
        AddNumbers(ID_MP3_RATE, cbrRates, cbr, L" kbit/s");
    else if (kind == ID_MP3_ABR)
        AddNumbers(ID_MP3_RATE, abrRates, abr, L" kbit/s");
    ChooseItem(ID_MP3_RATE, kind == ID_MP3_CBR ? cbr : abr);
}

XString Mp3Panel::Summary() const {
    const Mp3Choice choice = Shown();
    const XString rate = DecimalText(UsualBitRate(choice, false)) + L" kbit/s, ";
    XString text = L"Constant bit rate: " + rate;
    if (choice.abr)
        text = L"Average bit rate: about " + rate;
    else if (!choice.cbr)
        text = XString(L"Variable bit rate, ") + qualityTexts[choice.vbr] + L" quality: about " + rate;
    return text + modeSummaries[static_cast<int>(choice.mode)];
}

void Mp3Panel::OnChanged(int id) {
    if (id == ID_MP3_RATE)
        (listed == ID_MP3_CBR ? cbr : abr) = ChosenItem(ID_MP3_RATE);
    ShowRates();
    SetText(ID_SUMMARY, Summary());
}
