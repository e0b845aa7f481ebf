// Dates and times as the user's regional settings write them. All are empty if the system fails.
#pragma once

#include "foundation/XString.h"

#include <windows.h>

[[nodiscard]] XString ShortDatePattern(); // such as "M/d/yyyy"
[[nodiscard]] XString FormatDate(const SYSTEMTIME& systemTime, const wchar_t* pattern);
[[nodiscard]] XString FormatTime(const SYSTEMTIME& systemTime); // 01:02:03 PM
