// One turn among all processes that know the name. Windows only.
#pragma once

#include "foundation/XHandles.h"
#include "foundation/XString.h"

// Waits in its constructor and ends the turn in its destructor, on the same thread. One who died in
// its turn leaves it to the next.
class clNamedTurn {
public:
    clNamedTurn(const XString& name, DWORD timeoutMs) : mutex(CreateMutexW(nullptr, FALSE, name)) {
        if (!mutex.IsValid())
            return;
        const DWORD answer = WaitForSingleObject(mutex.Get(), timeoutMs);
        isTaken = answer == WAIT_OBJECT_0 || answer == WAIT_ABANDONED;
    }
    ~clNamedTurn() {
        if (isTaken)
            ReleaseMutex(mutex.Get());
    }
    clNamedTurn(const clNamedTurn&) = delete;
    clNamedTurn& operator=(const clNamedTurn&) = delete;
    [[nodiscard]] bool IsTaken() const { return isTaken; }

private:
    XKernelHandle mutex;
    bool isTaken = false;
};
