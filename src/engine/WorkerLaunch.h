// Starts a worker process for one file: events, command file, pipes, process.
#pragma once

#include "engine/Records.h"
#include "engine/XPipe.h"
#include "foundation/XTempFile.h"
#include "foundation/XThread.h"

struct clFileItem;

struct clWorkerLink {
    XPipe outPipe;
    XPipe errorPipe;
    XKernelHandle process;
    XKernelHandle thread;  // the worker's main thread
    XTempFile commandFile; // stays until the next launch in the slot
    XEvent cancelEvent;
    XEvent watchdogEvent;
};

// What every launch of a batch shares.
struct clLaunchContext {
    std::uint32_t batchId = 0;
    XString executable; // empty: the worker beside the program
};

// The slot must be free. A failure leaves it free and its reason in the error text.
void LaunchWorker(clJobSlot& slot, const clFileItem& item, const clLaunchContext& context);
// Starts the process with its output on the slot's pipes. True if it runs.
[[nodiscard]] bool StartProcess(clJobSlot& slot, const XString& commandLine);
// Puts a running worker at the slot's priority.
void ApplyPriority(const clJobSlot& slot);
// Makes a manual-reset event that nobody else has and returns its name: prefix and a number.
[[nodiscard]] XString MakeUniqueEvent(XEvent& event, const wchar_t* prefix);
