// Explorer starts one process for each selected file. They meet here: all leave their paths in one
// spool, and the first stays until no more come. Windows only.
#pragma once

#include "foundation/XArray.h"

#include <cstdint>

struct clGatheringPlace {
    XString name;                    // of the mutex and the event; one for each copy of the program
    XString spool;                   // path of the file; one for each session
    std::uint32_t quietMs = 300;     // so long after the last arrival the list is complete
    std::uint32_t longestMs = 10000; // from the first arrival, whatever comes still
    std::uint32_t busyMs = 5000;     // so long the others may keep the spool
};
// A machine that takes `delayMs` to start a process, or lets that much pass between two of one click, is
// busy: the quiet has to last longer there, up to two seconds. The answer is never below `quietMs`.
[[nodiscard]] std::uint32_t QuietAfter(std::uint32_t quietMs, std::uint64_t delayMs);
[[nodiscard]] clGatheringPlace UsualGatheringPlace(const XString& programFolder);

enum class clGathered {
    handedOver, // another process has them
    complete,   // `paths` now holds those of all processes
    alone,      // the spool can't be used: `paths` is as it was
};
// Adds nothing to `paths` and loses nothing: each path ends in one process's `paths` exactly once.
[[nodiscard]] clGathered GatherPaths(const clGatheringPlace& place, std::uint64_t startTime,
                                     XStringArray& paths);
