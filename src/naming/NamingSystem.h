// What naming asks the system for: the clock and the counter. NamingSystemWin.cpp and, natively,
// fixed values for the tests. Forms' thread only.
#pragma once

#include "foundation/XString.h"

// One moment, in UTC, as the regional settings write it.
struct clNamingClock {
    XString date; // in the short form; empty if the system fails, as is `time`
    XString time;
    int dayOfWeek = 0; // 0 is Sunday
    int year = 0;
};
[[nodiscard]] clNamingClock ReadNamingClock();

// The next number of the counter that all runs of the program share, from 1. Two programs at the same
// moment may get the same one.
[[nodiscard]] std::uint32_t TakeUniqueNumber();
