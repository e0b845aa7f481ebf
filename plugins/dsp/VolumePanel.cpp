#include "plugins/dsp/VolumePanel.h"

#include "plugins/common/RealText.h"
#include "plugins/dsp/PanelIds.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr const wchar_t* modeTexts[] = {L"Same loudness for every file", L"Same peak for every file",
                                        L"Same change for every file"};
constexpr const wchar_t* units[] = {L"LUFS", L"dBFS", L"dB"};
constexpr const wchar_t* overTexts[] = {L"lower the whole file", L"limit these moments"};
constexpr wchar_t limitOption[] = L"limit", overOption[] = L"over";

double RealOf(const XString& text, int minimum, int maximum, double usual) {
    double value = usual;
    if (!ReadReal(text, value))
        return usual;
    return std::clamp(value, static_cast<double>(minimum), static_cast<double>(maximum));
}

double LimitOf(const XString& text) {
    return RealOf(text, volumeLowestLimit, volumeHighestLimit, volumeUsualLimit);
}

double ValueOf(VolumeMode mode, const XString& text) {
    const VolumeTarget& target = volumeTargets[mode];
    return RealOf(text, target.minimum, target.maximum, target.usual);
}

// Of several the first counts, as with any option that stands twice.
VolumeMode ModeOf(const SettingsText& settings) {
    for (const VolumeMode mode : {volumeLoudness, volumePeak, volumeGain})
        if (settings.Has(volumeTargets[mode].option))
            return mode;
    return volumeLoudness;
}

} // namespace

VolumePanel::VolumePanel() noexcept : NumberPanel(ID_PANEL) {}

VolumeMode VolumePanel::Mode() const {
    return static_cast<VolumeMode>(ChosenItem(ID_VOLUME_MODE));
}

double VolumePanel::Value(VolumeMode mode) const {
    return ValueOf(mode, Text(ID_VOLUME_VALUE));
}

double VolumePanel::Limit() const {
    return LimitOf(Text(ID_VOLUME_LIMIT));
}

void VolumePanel::ShowMode(VolumeMode mode) const {
    SetText(ID_VOLUME_VALUE, RealText(volumeTargets[mode].usual));
    SetChecked(ID_VOLUME_HAS_LIMIT, mode == volumeLoudness);
}

void VolumePanel::Fill(const SettingsText& settings) {
    const VolumeMode mode = ModeOf(settings);
    for (int i = 0; i < static_cast<int>(std::size(modeTexts)); ++i)
        AddItem(ID_VOLUME_MODE, modeTexts[i], i);
    ChooseItem(ID_VOLUME_MODE, mode);
    ShowMode(mode);
    SetText(ID_VOLUME_VALUE, RealText(ValueOf(mode, settings.Value(volumeTargets[mode].option))));
    if (settings.Has(limitOption))
        SetChecked(ID_VOLUME_HAS_LIMIT, !settings.Value(limitOption).EqualsNoCase(volumeLimitOff));
    SetText(ID_VOLUME_LIMIT, RealText(LimitOf(settings.Value(limitOption))));
    FillChoice(settings, ID_VOLUME_OVER, overOption, volumeOverWords, overTexts);
}

void VolumePanel::Collect(SettingsText& settings) {
    const VolumeMode mode = Mode();
    for (const VolumeMode other : {volumeLoudness, volumePeak, volumeGain})
        if (other != mode)
            settings.Remove(volumeTargets[other].option);
    // Loudness is what no option at all means; the others have to be named.
    const XString usual = mode == volumeLoudness ? RealText(volumeTargets[mode].usual) : XString(L"-");
    settings.Put(volumeTargets[mode].option, RealText(Value(mode)), usual);
    const XString usualLimit = mode == volumeLoudness ? RealText(volumeUsualLimit) : XString(volumeLimitOff);
    settings.Put(limitOption, IsChecked(ID_VOLUME_HAS_LIMIT) ? RealText(Limit()) : XString(volumeLimitOff),
                 usualLimit);
    CollectChoice(settings, ID_VOLUME_OVER, overOption, volumeOverWords);
}

XString VolumePanel::Summary() const {
    const VolumeMode mode = Mode();
    const double value = Value(mode);
    XString text;
    if (mode == volumeLoudness)
        text = L"Every file becomes as loud as " + RealText(value) + L" LUFS (EBU R128)";
    else if (mode == volumePeak)
        text = L"The highest sample of every file comes to " + RealText(value) + L" dBFS";
    else if (value == 0)
        text = L"Nothing is made louder or quieter";
    else
        text = L"Everything becomes " + RealText(value < 0 ? -value : value) +
               (value < 0 ? L" dB quieter" : L" dB louder");
    if (!IsChecked(ID_VOLUME_HAS_LIMIT))
        return text + (mode == volumeGain && value <= 0 ? L"." : L"; what goes above full scale is clipped.");
    return text +
           (ChosenItem(ID_VOLUME_OVER) == 0 ? L", or less, so that no true peak is above "
                                            : L"; where a true peak would come above ") +
           RealText(Limit()) +
           (ChosenItem(ID_VOLUME_OVER) == 0 ? L" dBTP." : L" dBTP, it is limited for that moment.");
}

void VolumePanel::OnChanged(int id) {
    if (id == ID_VOLUME_MODE)
        ShowMode(Mode());
    const BOOL hasLimit = IsChecked(ID_VOLUME_HAS_LIMIT) ? TRUE : FALSE;
    EnableWindow(Control(ID_VOLUME_LIMIT), hasLimit);
    EnableWindow(Control(ID_VOLUME_OVER), hasLimit);
    SetText(ID_VOLUME_UNIT, units[Mode()]);
    SetText(ID_SUMMARY, Summary());
}
