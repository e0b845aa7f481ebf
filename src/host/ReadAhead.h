// The thread that asks the decoders for format and tags of all files ahead of their use.
#pragma once

#include "foundation/XThread.h"
#include "host/clFileList.h"

#include <atomic>

// Whether the naming template of the moment needs tags. Set before the thread starts.
extern std::atomic<bool> NeedsTags;

inline constexpr DWORD readAheadStopMs = 20000; // for XThread::Start

struct clReadAhead {
    clFileList* files = nullptr; // borrowed; must outlive the thread
};

// An XThread function; `argument` is a clReadAhead. Brings each item to stage 2 with NeedsTags, else
// 1, and also those that no decoder takes, so that they are not asked again.
void ProbeSourceFiles(XEvent* quit, void* argument) noexcept;
