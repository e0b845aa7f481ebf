// Numbers as the user's regional settings write them. The settings are read once.
#pragma once

#include "foundation/XString.h"

struct XLocaleNumbers {
    bool loaded = false;
    bool leadingZero = true;
    int negativeForm = 1;
    bool indianGrouping = false; // 3;2;0
    wchar_t negativeSign[6] = L"-";
    wchar_t positiveSign[6] = L"";
    wchar_t thousandSeparator[6] = L"";
    wchar_t decimalSeparator[6] = L".";
    wchar_t timeSeparator[6] = L":";
};

// The program-wide values; filled on first use by LoadLocaleNumbers. Forms' thread only.
[[nodiscard]] XLocaleNumbers& LocaleNumbers();
void LoadLocaleNumbers();
// Takes each setting by its name under Control Panel\International; an empty answer is the default.
void FillLocaleNumbers(XLocaleNumbers& numbers, XString (*readSetting)(const wchar_t* name));
// Rewrites a plain number text (optional -, digits, optional . and digits) in place.
void Localise(XString& text);
[[nodiscard]] XString FormatInt(std::int64_t value);
[[nodiscard]] XString FormatReal(double value, int decimals, bool keepZeros);
// "12 bytes", "3 KB", "1.5 MB" up to TB; with `forceKilo` always in KB. Units are powers of 1024.
[[nodiscard]] XString FormatSize(std::int64_t bytes, bool forceKilo);
