// The thread that all tool tips of the process share: it polls the cursor and owns their windows.
//
// Whatever that thread does, it does with TooltipLock held, the dispatch of its messages included.
// The thread of forms takes the lock by XTipLock alone, and lets messages that are sent to it in
// while it waits, since the other thread may be waiting for the answer to one. It sends none itself
// while it holds the lock.
#pragma once

#include <windows.h>

class XToolTip;

class XTipThread {
public:
    // Both with TooltipLock held. The first tip starts the thread.
    static void Add(XToolTip& tip);
    static void Remove(XToolTip& tip);
    // Without the lock: ends the thread when no tip is left.
    static void StopIfIdle();
    [[nodiscard]] static bool IsRunning();
    static void TickAll(POINT cursor); // for the thread itself
    // Lets sent messages in while `timeoutMs` pass.
    static void Wait(DWORD timeoutMs);
};

// TooltipLock for a scope on the thread of forms. Gives up after `timeoutMs`.
class XTipLock {
public:
    explicit XTipLock(DWORD timeoutMs = INFINITE);
    ~XTipLock();
    XTipLock(const XTipLock&) = delete;
    XTipLock& operator=(const XTipLock&) = delete;

    const bool taken;
};
