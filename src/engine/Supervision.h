// The supervision step of a slot. Never waits; called 20 times a second for every slot.
#pragma once

#include "engine/Records.h"

struct clPollOrder {
    bool paused = false;
    bool cancelling = false;
    std::uint32_t priority = priorityNormal;
    std::uint32_t watchdogMs = 60000; // silence that is taken for a crash
};

enum clSlotChange : unsigned {
    slotBarChanged = 1,  // shownPercent, or a worker ended
    slotTextChanged = 2, // shownText
};

// Bits of clSlotChange. Also for free slots.
unsigned PollWorker(clJobSlot& slot, const clPollOrder& order);
// Reads both pipes; unless `final` the end of the process ends the slot's hold. True if it did.
bool DrainWorker(clJobSlot& slot, bool final);
// Lets go of the worker, after its last lines are read. Never terminates it.
void EndWorker(clJobSlot& slot);
