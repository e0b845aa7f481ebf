// The system's clock, and the counter in the settings.
#include "naming/NamingSystem.h"

#include "foundation/XDateText.h"
#include "host/Settings.h"

clNamingClock ReadNamingClock() {
    SYSTEMTIME now{};
    GetSystemTime(&now);
    return {FormatDate(now, ShortDatePattern()), FormatTime(now), now.wDayOfWeek, now.wYear};
}

std::uint32_t TakeUniqueNumber() {
    const DWORD number = RegReadDword(Setting::uniqueNumber) + 1;
    RegWriteDword(number, Setting::uniqueNumber);
    return number;
}
