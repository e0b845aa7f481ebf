// One conversion from its settings to its end, driven by the progress form's timer. It knows no
// window: each step says what changed and the form shows it. Windows only, forms' thread only.
#pragma once

#include "engine/Batch.h"
#include "engine/ProgressText.h"
#include "engine/Scheduler.h"
#include "engine/Supervision.h"
#include "engine/WorkerLaunch.h"
#include "foundation/XThread.h"
#include "host/ReadAhead.h"

// What the form is to do after a tick.
enum class clTickOutcome {
    nothing,
    abandoned,   // the overwrite question was cancelled: state 2; close the form
    finishBatch, // show "Finalizing DSP Effects", update the window, then call FinishBatch
    cancelled,   // the last worker is gone after a cancel: the form's end of conversion
};

struct clTickReport {
    std::uint32_t barsChanged = 0;  // bit k: the bar of slots[k]
    std::uint32_t textsChanged = 0; // bit k: shownText of slots[k]
    clTickOutcome outcome = clTickOutcome::nothing;
};

class clConversion {
public:
    // `files` is borrowed for the life of the object.
    explicit clConversion(clFileList& files) : files(files) {}
    clConversion(const clConversion&) = delete;
    clConversion& operator=(const clConversion&) = delete;

    // In this order, from the form's initialisation. ReadSetup reads the registry; Prepare begins
    // the batch, finds the number of slots and builds them; StartReadAhead starts the thread.
    void ReadSetup();
    void Prepare();
    void StartReadAhead();

    // One step of the form's timer; the caller guards against re-entry, since `askOverwrite` may
    // show a modal box from inside.
    [[nodiscard]] clTickReport Tick();
    // In place of outcome finishBatch: the effects' batch end, then the finished texts and numbers.
    void FinishBatch();

    void Pause();
    void Resume();
    void Cancel(); // ends a pause without moving the start tick
    [[nodiscard]] bool IsPaused() const { return paused; }
    [[nodiscard]] bool AreRowsShown() const { return scheduler.slots.Count() >= 2; }

    clFileList& files;
    clConversionSetup setup;
    clScheduler scheduler; // state, counters, slots, results, logs
    clBatch batch;
    clProgressTexts texts;           // the form writes those that differ from what it shows
    std::int64_t overallPercent = 0; // 0 to 100, never goes down
    std::int32_t multiplier = 1;
    std::uint32_t priority = priorityNormal; // taken up by all workers in the next tick
    std::uint32_t watchdogMs = 60000;
    clAskOverwrite askOverwrite; // without one, existing files are overwritten
    clScheduler::Launch launch;  // empty: LaunchWorker
    XString workerExecutable;    // empty: the worker beside the program

private:
    clTickOutcome TickExamining();
    [[nodiscard]] bool BuildOutputList();
    void TickProgress();
    clTickOutcome TickCancelling();
    [[nodiscard]] clTickOutcome Schedule();

    clReadAhead readAheadWork; // outlives the thread
    XThread readAhead;         // stops before anything else here goes
    bool paused = false;
    std::uint32_t pauseStart = 0;
};
