// Date and time texts by the system's own formatter.
#include "foundation/XDateText.h"

namespace {

constexpr int bufferUnits = 1000;

} // namespace

XString ShortDatePattern() {
    wchar_t pattern[bufferUnits];
    if (GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, pattern, bufferUnits) == 0)
        return {};
    return pattern;
}

XString FormatDate(const SYSTEMTIME& systemTime, const wchar_t* pattern) {
    wchar_t text[bufferUnits];
    if (GetDateFormatW(LOCALE_USER_DEFAULT, 0, &systemTime, pattern, text, bufferUnits) == 0)
        return {};
    return text;
}

XString FormatTime(const SYSTEMTIME& systemTime) {
    wchar_t text[bufferUnits];
    if (GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &systemTime, L"hh':'mm':'ss tt", text, bufferUnits) == 0)
        return {};
    return text;
}
