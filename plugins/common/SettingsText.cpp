// Reads forgivingly and writes what the option parser reads back.
#include "plugins/common/SettingsText.h"

namespace {

// A value of the option parser can't hold a double quote: there is no escape.
XString WithoutQuotes(const XString& value) {
    XString clean = value;
    clean.Replace(L"\"", L"");
    return clean;
}

} // namespace

XString SettingsText::Value(const wchar_t* name) const {
    XString value;
    list.GetValue(name, value);
    return value;
}

int SettingsText::Number(const wchar_t* name, int minimum, int maximum, int fallback) const {
    const XString value = Value(name);
    const bool isNegative = value.CharAt(1) == L'-';
    std::int64_t number = 0;
    for (int i = isNegative ? 2 : 1; i <= value.Count(); ++i) {
        if (value.CharAt(i) < L'0' || value.CharAt(i) > L'9')
            return fallback;
        if (number <= maximum)
            number = number * 10 + (value.CharAt(i) - L'0');
    }
    if (value.Count() == (isNegative ? 1 : 0))
        return fallback;
    if (isNegative || number < minimum)
        return minimum;
    return number > maximum ? maximum : static_cast<int>(number);
}

int SettingsText::Word(const wchar_t* name, const wchar_t* const* words, int count) const {
    const XString value = Value(name);
    for (int i = 0; i < count; ++i)
        if (value.EqualsNoCase(words[i]))
            return i;
    return 0;
}

bool SettingsText::Flag(const wchar_t* name) const {
    return Has(name) && Value(name) != L"0";
}

void SettingsText::Put(const wchar_t* name, const XString& value, const wchar_t* fallback) {
    const bool isNew = !Has(name) || !Value(name).EqualsNoCase(value);
    const XString clean = WithoutQuotes(value);
    if (isNew && clean.EqualsNoCase(fallback)) {
        Remove(name);
        return;
    }
    std::int64_t at = 0;
    while (at < list.keys.Count() && !list.keys[at].EqualsNoCase(name))
        ++at;
    RemoveFrom(at + 1, name);
    if (at == list.keys.Count()) {
        list.keys.AddString(name);
        list.values.AddString(clean);
    } else if (isNew) {
        list.values[at] = clean;
    }
}

void SettingsText::PutNumber(const wchar_t* name, int value, int fallback) {
    Put(name, DecimalText(value), DecimalText(fallback));
}

void SettingsText::PutFlag(const wchar_t* name, bool on) {
    const XString value = Value(name);
    const bool isGood = value.IsEmpty() || value == L"0" || value == L"1";
    if (Has(name) && on == Flag(name) && isGood)
        Put(name, value, value); // as it stands
    else if (on)
        Put(name, L"", L"-"); // no fallback: the name alone
    else
        Remove(name);
}

void SettingsText::Remove(const wchar_t* name) {
    RemoveFrom(0, name);
}

void SettingsText::RemoveFrom(std::int64_t index, const wchar_t* name) {
    for (std::int64_t i = list.keys.Count() - 1; i >= index; --i)
        if (list.keys[i].EqualsNoCase(name)) {
            list.keys.DeleteAt(i);
            list.values.DeleteAt(i);
        }
}

XString SettingsText::Text() const {
    XString text;
    for (std::int64_t i = 0; i < list.keys.Count(); ++i) {
        if (!text.IsEmpty())
            text.Extend(L" ");
        // The parser takes one or two hyphens away: a name that begins with one needs both.
        text.Extend(list.keys[i].CharAt(1) == L'-' ? L"--" : L"-");
        text.Extend(list.keys[i]);
        if (list.values[i].IsEmpty())
            continue;
        // Only a value that came without quotes can hold one, and it holds no blank then.
        const wchar_t* quote = list.values[i].FindChar(L'"') > 0 ? L"" : L"\"";
        text.Extend(L"=");
        text.Extend(quote);
        text.Extend(list.values[i]);
        text.Extend(quote);
    }
    return text;
}
