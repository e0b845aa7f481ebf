// The supervision step of a slot.
#include "engine/Supervision.h"

#include "engine/WorkerLaunch.h"
#include "engine/WorkerText.h"

namespace {

void FollowPause(clJobSlot& slot, bool paused, std::uint32_t now) {
    if (paused)
        slot.lastLife = now; // a suspended worker can't show that it lives
    if (paused == slot.suspended)
        return;
    slot.suspended = paused;
    const HANDLE thread = slot.link->thread.Get();
    if (!thread)
        return;
    if (paused)
        SuspendThread(thread);
    else
        ResumeThread(thread);
}

// False if the worker was given up.
bool WatchLife(clJobSlot& slot, std::uint32_t watchdogMs, std::uint32_t now) {
    XEvent& watchdog = slot.link->watchdogEvent;
    if (watchdog.IsSet()) {
        slot.lastLife = now;
        watchdog.Reset();
    }
    if (now - slot.lastLife <= watchdogMs)
        return true;
    AddLine(slot.errorText, L"Error: Watchdog timeout, possible Millworker crash");
    EndWorker(slot);
    return false;
}

} // namespace

unsigned PollWorker(clJobSlot& slot, const clPollOrder& order) {
    unsigned changes = DrainWorker(slot, false) ? slotBarChanged : 0u;
    if (slot.priority != order.priority) {
        slot.priority = order.priority;
        ApplyPriority(slot);
    }
    if (slot.running && slot.link) {
        const std::uint32_t now = GetTickCount();
        FollowPause(slot, order.paused, now);
        if (order.cancelling)
            slot.link->cancelEvent.Set();
        if (!WatchLife(slot, order.watchdogMs, now))
            changes |= slotBarChanged;
    }
    const std::int32_t percent = PercentToShow(slot);
    if (percent != slot.shownPercent) {
        slot.shownPercent = percent;
        changes |= slotBarChanged;
    }
    if (!order.paused && RotateRowText(slot, GetTickCount()))
        changes |= slotTextChanged;
    return changes;
}

bool DrainWorker(clJobSlot& slot, bool final) {
    if (!slot.running || !slot.link || !slot.link->process.IsValid())
        return false;
    XStringArray lines;
    const XBuffer& errors = slot.link->errorPipe.ReadAvailable();
    SplitWorkerBytes(errors.data, errors.fill, lines);
    for (const XString& line : lines)
        AddLine(slot.errorText, line);

    const XBuffer& output = slot.link->outPipe.ReadAvailable();
    SplitWorkerBytes(output.data, output.fill, lines);
    for (const XString& line : lines)
        if (!ParseWorkerLine(slot, line))
            AddLine(slot.informationText, line);

    if (final || WaitForSingleObject(slot.link->process.Get(), 0) != WAIT_OBJECT_0)
        return false;
    EndWorker(slot);
    return true;
}

void EndWorker(clJobSlot& slot) {
    if (slot.link && slot.link->process.IsValid()) {
        DrainWorker(slot, true);
        slot.link->process.Reset();
        slot.link->thread.Reset();
    }
    FreeSlot(slot);
}
