// What all windows and controls of the process share.
#pragma once

#include "foundation/XArray.h"
#include "foundation/XThread.h"

#include <cstdint>

struct XToolkitState {
    XToolkitState();

    XMutex WindowListLock;     // guards the next two; never held during a dispatch
    XPointerSlots LiveWindows; // XWindow pointers, borrowed
    std::uint32_t WindowClassCounter = 0;
    XMutex SubclassLock;
    XMutex TooltipLock;                   // guards all tips and their list; see XTipThread.h
    std::uint32_t ScreenDpi = 0xFFFFFFFF; // not yet read
};

// Made on first use, so that static objects of any file may use it; every XWindow and XSubClassCtrl
// asks for it in its constructor and so dies before it.
XToolkitState& Toolkit();

// Takes a mutex for a scope. Balanced also when the thread holds it already, which a scope that
// goes by the mutex's `held` is not.
class XLocked {
public:
    explicit XLocked(XMutex& mutex) : mutex(mutex) { mutex.Lock(); }
    ~XLocked() { mutex.Unlock(); }
    XLocked(const XLocked&) = delete;
    XLocked& operator=(const XLocked&) = delete;

private:
    XMutex& mutex;
};
