// Durations in words and in digits.
#include "foundation/XDurationText.h"

#include "foundation/XNumberText.h"

namespace {

struct DurationParts {
    std::int64_t hours, minutes, seconds, milliseconds;
};

DurationParts SplitDuration(std::int64_t milliseconds) {
    return {milliseconds / 3600000, milliseconds / 60000 % 60, milliseconds / 1000 % 60, milliseconds % 1000};
}

XString Counted(std::int64_t number, const wchar_t* word) {
    const XString text = DecimalText(number) + L" " + word;
    return number == 1 ? text : text + L"s";
}

XString TwoUnits(const XString& first, std::int64_t number, const wchar_t* word) {
    return number == 0 ? first : first + L" " + Counted(number, word);
}

XString InWords(const DurationParts& parts, bool withMilliseconds) {
    if (parts.hours != 0)
        return TwoUnits(Counted(parts.hours, L"hour"), parts.minutes, L"minute");
    if (parts.minutes != 0)
        return TwoUnits(Counted(parts.minutes, L"minute"), parts.seconds, L"second");
    const bool hasFraction = parts.milliseconds != 0 && withMilliseconds;
    if (parts.seconds == 0) // the word's spelling is the one that users know
        return hasFraction ? Counted(parts.milliseconds, L"mili-second") : XString(L"0");
    if (!hasFraction)
        return Counted(parts.seconds, L"second");
    const double seconds =
        static_cast<double>(parts.seconds) + static_cast<double>(parts.milliseconds) / 1000.0;
    return FormatReal(seconds, 1, false) + L" seconds";
}

XString Padded(std::int64_t number, int digits) {
    XString text = DecimalText(number);
    while (text.Count() < digits)
        text.InsertChar(L'0', 1);
    return text;
}

XString InDigits(const DurationParts& parts, bool isShort) {
    const wchar_t* separator = LocaleNumbers().timeSeparator;
    const XString seconds = separator + Padded(parts.seconds, 2);
    if (isShort && parts.hours == 0)
        return DecimalText(parts.minutes) + seconds;
    return Padded(parts.hours, isShort ? 1 : 2) + separator + Padded(parts.minutes, 2) + seconds;
}

} // namespace

XString FormatDuration(std::int64_t milliseconds, int mode) {
    const DurationParts parts = SplitDuration(milliseconds);
    switch (mode) {
    case durationWords:
    case durationWholeSeconds:
        return InWords(parts, mode == durationWords);
    case durationShort:
    case durationLong:
        return InDigits(parts, mode == durationShort);
    case durationMilli:
        return InDigits(parts, false) + LocaleNumbers().decimalSeparator + Padded(parts.milliseconds, 3);
    default:
        return {};
    }
}
