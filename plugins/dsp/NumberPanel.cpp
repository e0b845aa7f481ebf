#include "plugins/dsp/NumberPanel.h"

namespace {
constexpr WPARAM mostDigits = 5;
}

void NumberPanel::FillNumber(const SettingsText& settings, const NumberField& field) const {
    SendMessageW(Control(field.id), EM_SETLIMITTEXT, mostDigits, 0);
    SetText(field.id, DecimalText(settings.Number(field.option, field.minimum, field.maximum, field.usual)));
}

void NumberPanel::CollectNumber(SettingsText& settings, const NumberField& field) const {
    settings.PutNumber(field.option, Number(field), field.usual);
}

int NumberPanel::Number(const NumberField& field) const {
    SettingsText typed(L"");
    typed.Put(field.option, Text(field.id), L"-");
    return typed.Number(field.option, field.minimum, field.maximum, field.usual);
}

XString NumberPanel::Seconds(const NumberField& field) const {
    XString text;
    text.FromReal(Number(field) / 1000.0, 3, false);
    return text + L" s";
}
