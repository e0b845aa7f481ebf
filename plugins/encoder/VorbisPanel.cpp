// The slider and the list share a place: one is shown at a time.
#include "plugins/encoder/VorbisPanel.h"

#include <iterator>

namespace {

constexpr int abrRates[] = {48, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 400, 500};
constexpr int usualAbr = 192;
constexpr const wchar_t* qualityTexts[] = {L"lowest", L"very low",  L"low",       L"low",
                                           L"fair",   L"good",      L"good",      L"high",
                                           L"high",   L"very high", L"very high", L"highest"};
static_assert(std::size(qualityTexts) == VorbisOption::highestQuality - VorbisOption::lowestQuality + 1);

} // namespace

void VorbisPanel::Fill(const SettingsText& settings) {
    using namespace VorbisOption;
    // Of a text that names both kinds the rate is taken.
    const int abr = settings.Number(L"abr", lowestAbr, highestAbr, 0);
    const bool isLowest = settings.Value(L"quality") == L"-1"; // the only number with a sign
    SetChecked(abr ? ID_VORBIS_ABR_KIND : ID_VORBIS_QUALITY_KIND, true);
    SetSlider(ID_VORBIS_QUALITY, lowestQuality, highestQuality,
              isLowest ? lowestQuality : settings.Number(L"quality", 0, highestQuality, usualQuality));
    AddNumbers(ID_VORBIS_RATE, abrRates, abr, L" kbit/s");
    ChooseItem(ID_VORBIS_RATE, abr ? abr : usualAbr);
}

VorbisChoice VorbisPanel::Shown() const {
    VorbisChoice choice;
    choice.quality = Slider(ID_VORBIS_QUALITY);
    choice.abr = IsChecked(ID_VORBIS_ABR_KIND) ? ChosenItem(ID_VORBIS_RATE) : 0;
    return choice;
}

void VorbisPanel::Collect(SettingsText& settings) {
    const VorbisChoice choice = Shown();
    if (choice.abr) {
        settings.PutNumber(L"abr", choice.abr, 0);
        settings.Remove(L"quality");
    } else {
        settings.PutNumber(L"quality", choice.quality, VorbisOption::usualQuality);
        settings.Remove(L"abr");
    }
}

void VorbisPanel::ShowKind() {
    const bool hasRate = IsChecked(ID_VORBIS_ABR_KIND);
    for (const int id :
         {ID_VORBIS_QUALITY_LABEL, ID_VORBIS_QUALITY, ID_VORBIS_QUALITY_LOW, ID_VORBIS_QUALITY_HIGH})
        ShowWindow(Control(id), hasRate ? SW_HIDE : SW_SHOWNA);
    for (const int id : {ID_VORBIS_RATE_LABEL, ID_VORBIS_RATE})
        ShowWindow(Control(id), hasRate ? SW_SHOWNA : SW_HIDE);
}

void VorbisPanel::OnChanged(int) {
    ShowKind();
    const VorbisChoice choice = Shown();
    XString text = L"Average bit rate: about ";
    if (!choice.abr)
        text = L"Quality " + DecimalText(choice.quality) + L", " +
               qualityTexts[choice.quality - VorbisOption::lowestQuality] + L": about ";
    SetText(ID_SUMMARY, text + DecimalText(UsualBitRate(choice, 2)) + L" kbit/s for stereo, " +
                            DecimalText(UsualBitRate(choice, 1)) + L" for mono");
}
