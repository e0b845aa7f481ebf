// The check of settings texts and the messages that tell users what would have been right.
#include "plugins/common/Settings.h"

#include "plugins/common/RealText.h"

namespace {

constexpr int mostDigits = 9;

bool IsNumber(const XString& text) {
    const int first = text.CharAt(1) == L'-' ? 2 : 1;
    if (text.Count() < first || text.Count() > mostDigits)
        return false;
    for (int i = first; i <= text.Count(); ++i)
        if (text.CharAt(i) < L'0' || text.CharAt(i) > L'9')
            return false;
    return true;
}

bool IsOneOf(const XString& value, const wchar_t* words) {
    XStringArray pieces;
    Split(pieces, words, L"|");
    return !value.IsEmpty() && pieces.Contains(value, true);
}

bool IsAllowed(const SettingsOption& option, const XString& value) {
    if (option.isFlag)
        return value.IsEmpty() || value == L"0" || value == L"1";
    if (IsOneOf(value, option.words))
        return true;
    if (option.isReal) {
        double number = 0;
        return ReadReal(value, number) && number >= static_cast<double>(option.minimum) &&
               number <= static_cast<double>(option.maximum);
    }
    return option.minimum < option.maximum && IsNumber(value) && value.ToInt() >= option.minimum &&
           value.ToInt() <= option.maximum;
}

XString WhatIsAllowed(const SettingsOption& option) {
    if (option.isFlag)
        return L"it stands alone, or with 0 or 1";
    XString text;
    if (option.minimum < option.maximum)
        text = XString(option.isReal ? L"a number from " : L"a whole number from ") +
               DecimalText(option.minimum) + L" to " + DecimalText(option.maximum);
    XStringArray words;
    if (option.words[0] != 0)
        Split(words, option.words, L"|");
    for (const XString& word : words) {
        if (!text.IsEmpty())
            text += L" or ";
        text += word;
    }
    return text;
}

const SettingsOption* FindOption(const SettingsOption* options, int count, const XString& name) {
    for (int i = 0; i < count; ++i)
        if (name.EqualsNoCase(options[i].name))
            return &options[i];
    return nullptr;
}

XString KnownOptions(const SettingsOption* options, int count) {
    XString text;
    for (int i = 0; i < count; ++i)
        text += XString(L" -") + options[i].name;
    return text;
}

} // namespace

bool Settings::Parse(const wchar_t* text, const SettingsOption* options, int count, XString& error) {
    list.keys.Clear();
    list.values.Clear();
    XString trimmed = text;
    trimmed.TrimLeft();
    trimmed.TrimRight();
    if (trimmed.IsEmpty())
        return true;
    list.Parse(trimmed);
    if (list.keys.IsEmpty()) {
        error =
            L"The settings \"" + trimmed + L"\" hold no option. Options are" + KnownOptions(options, count);
        return false;
    }
    for (std::int64_t i = 0; i < list.keys.Count(); ++i) {
        const XString& name = list.keys[i];
        const XString& value = list.values[i];
        const SettingsOption* option = FindOption(options, count, name);
        if (!option) {
            error = L"Unknown option -" + name + L". Options are" + KnownOptions(options, count);
            return false;
        }
        if (!IsAllowed(*option, value)) {
            error =
                L"Option -" + name + L" can't be \"" + value + L"\". Allowed is " + WhatIsAllowed(*option);
            return false;
        }
        for (std::int64_t j = 0; j < i; ++j)
            if (list.keys[j].EqualsNoCase(name)) {
                error = L"Option -" + name + L" stands twice";
                return false;
            }
    }
    return true;
}

XString Settings::Word(const wchar_t* name, const wchar_t* fallback) const {
    XString value;
    return list.GetValue(name, value) ? value : XString(fallback);
}

std::int64_t Settings::Number(const wchar_t* name, std::int64_t fallback) const {
    XString value;
    return list.GetValue(name, value) && IsNumber(value) ? value.ToInt() : fallback;
}

double Settings::Real(const wchar_t* name, double fallback) const {
    XString value;
    double number = 0;
    return list.GetValue(name, value) && ReadReal(value, number) ? number : fallback;
}

bool Settings::Flag(const wchar_t* name) const {
    XString value;
    return list.GetValue(name, value) && value != L"0";
}
