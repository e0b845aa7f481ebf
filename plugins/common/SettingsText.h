// A settings text as a panel edits it: what the panel does not know, or did not change, stays.
#pragma once

#include "foundation/XKeyValueList.h"

#include <cstdint>

// Never fails: of options that stand twice the first counts and the others go once it is put, bare
// words vanish, and a value that makes no sense reads as the fallback. Text of what Text gave is that
// text again.
class SettingsText {
public:
    explicit SettingsText(const wchar_t* text) : list(text) {}

    [[nodiscard]] bool Has(const wchar_t* name) const { return list.Has(name); }
    [[nodiscard]] XString Value(const wchar_t* name) const; // empty if it is absent
    // Digits, brought into the range; anything else is the fallback.
    [[nodiscard]] int Number(const wchar_t* name, int minimum, int maximum, int fallback) const;
    // The index of the value in `words`, without regard to case; 0 for any other.
    template <int count>
    [[nodiscard]] int Word(const wchar_t* name, const wchar_t* const (&words)[count]) const {
        return Word(name, words, count);
    }
    [[nodiscard]] bool Flag(const wchar_t* name) const; // stands there, and not as "0"

    // The fallback is what an encoder takes without the option, so it is not written.
    void Put(const wchar_t* name, const XString& value, const wchar_t* fallback);
    void PutNumber(const wchar_t* name, int value, int fallback);
    void PutFlag(const wchar_t* name, bool on);
    void Remove(const wchar_t* name);

    // -name="value" joined by blanks; an option without value stands alone.
    [[nodiscard]] XString Text() const;

private:
    [[nodiscard]] int Word(const wchar_t* name, const wchar_t* const* words, int count) const;
    void RemoveFrom(std::int64_t index, const wchar_t* name);

    XKeyValueList list;
};
