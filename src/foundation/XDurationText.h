// Durations as users read them.
#pragma once

#include "foundation/XString.h"

enum XDurationMode : int {
    durationWords = 0,        // at most two units: "1 hour 2 minutes", "1.5 seconds", "500 mili-seconds"
    durationShort = 1,        // 2:05, 1:02:05
    durationLong = 2,         // 00:02:05
    durationMilli = 3,        // 00:02:05.955
    durationWholeSeconds = 4, // as words, but never below a second
};

// Everything is cut, nothing rounded up, but for words of less than a minute, which have a decimal.
// Separators are those of the regional settings. Empty for another mode. Forms' thread only.
[[nodiscard]] XString FormatDuration(std::int64_t milliseconds, int mode);
