// The two events of a launch and the process that made them. Windows only.
#pragma once

#include "foundation/XHandles.h"
#include "worker/CommandText.h"
#include "worker/Reporter.h"

// How a step of the work ended. Whoever fails has reported why.
enum clStep { stepGood, stepFailed, stepCancelled };

class Lifeline {
public:
    explicit Lifeline(const Reporter& reporter) noexcept : reporter(reporter) {}

    // False if an event is not there: nobody waits for this conversion then.
    [[nodiscard]] bool Open(const clWorkerCommand& command);
    // To be called for every block by the loop that does the work, and by nothing else: gives the sign
    // of life, four times a second, and is true as long as the work is wanted.
    [[nodiscard]] bool Pulse();

    [[nodiscard]] HANDLE QuitEvent() const noexcept { return quitEvent.Get(); }
    [[nodiscard]] HANDLE Parent() const noexcept { return parent.Get(); } // null if it is not known

private:
    const Reporter& reporter;
    XKernelHandle quitEvent;
    XKernelHandle watchdogEvent;
    XKernelHandle parent;
    ULONGLONG lastSign = 0;
};
