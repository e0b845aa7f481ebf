// Settings texts of encoders and effects: -name="value", checked against a table of what is allowed.
#pragma once

#include "foundation/XKeyValueList.h"

#include <cstdint>

// One allowed option. A value is good if it is one of `words` or, with minimum < maximum, a whole
// number between the two, or with a fraction if it `isReal`. A flag stands alone or with the value 0
// or 1.
struct SettingsOption {
    const wchar_t* name;
    const wchar_t* words = L""; // separated by '|'
    std::int64_t minimum = 0;
    std::int64_t maximum = 0;
    bool isFlag = false;
    bool isReal = false;
};

class Settings {
public:
    // False and a text for the user when an option is unknown, stands twice or has a bad value.
    // Null and blanks are the defaults.
    template <int count>
    [[nodiscard]] bool Parse(const wchar_t* text, const SettingsOption (&options)[count], XString& error) {
        return Parse(text, options, count, error);
    }
    [[nodiscard]] bool Has(const wchar_t* name) const { return list.Has(name); }
    [[nodiscard]] XString Word(const wchar_t* name, const wchar_t* fallback) const; // as given
    // The value as a number; `fallback` when it is absent or one of the option's words.
    [[nodiscard]] std::int64_t Number(const wchar_t* name, std::int64_t fallback) const;
    [[nodiscard]] double Real(const wchar_t* name, double fallback) const; // likewise
    [[nodiscard]] bool Flag(const wchar_t* name) const;

private:
    [[nodiscard]] bool Parse(const wchar_t* text, const SettingsOption* options, int count, XString& error);

    XKeyValueList list;
};
