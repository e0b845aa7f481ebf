// What Explorer's helper reads and writes as text: its command line and the spool, in which the
// processes of one click leave their paths. Portable.
#pragma once

#include "foundation/XArray.h"

#include <cstdint>

enum class clSendCommand {
    nothing,           // no path was given
    sendPaths,         //
    registerEntries,   // "/register"
    unregisterEntries, // "/unregister"
};

// What follows the program's name. A quote only begins and ends quoting and a backslash is always
// itself, so that "C:\" is a path: no path holds a quote.
void SplitPaths(const wchar_t* tail, XStringArray& paths);
[[nodiscard]] clSendCommand CommandOf(const XStringArray& words);

// A line of the spool for each path, ended by CR LF. `startTime` orders the processes of one click: Explorer
// starts them in its own order, and they arrive as they like.
[[nodiscard]] XString SpoolText(std::uint64_t startTime, const XStringArray& paths);
// Appends the paths of the spool's lines by start time, those of one process in their order. A line
// that SpoolText did not write is passed over.
void PathsOfSpool(const XStringArray& lines, XStringArray& paths);

// A list file's text: each path and CR LF.
[[nodiscard]] XString ListText(const XStringArray& paths);
