// The end of a worker that can't end by itself: its codec crashed, or hangs while nobody wants the
// conversion any more. What it was writing is taken away all the same. Windows only.
#pragma once

#include "worker/Lifeline.h"
#include "worker/TargetFile.h"

enum clExitCode : int {
    exitGood = 0,
    exitFailed = 1,
    exitCancelled = 2,
    exitCrashed = 3,
    exitNoCommand = 4,
};

// Boxes off, and an error line naming `source` for every crash, abort or exit of a codec.
void GuardAgainstCrashes(const XString& source);
// What to take away; null: nothing. The target must outlive the next call.
void SetForcedEndTarget(TargetFile* target) noexcept;
// A thread that waits for the quit event or the parent's death and, if the work has not ended soon
// after, ends the process. It gives no sign of life.
void GuardAgainstHanging(const Lifeline& lifeline);
// The work is over: a plain exit is no fault from here on.
void AllowExit() noexcept;
