// The thread of the tool tips, and waiting for it.
#include "toolkit/XTipThread.h"

#include "foundation/XArray.h"
#include "foundation/XThread.h"
#include "toolkit/XToolTip.h"
#include "toolkit/XToolkitState.h"

namespace {
constexpr DWORD tickMs = 50;
constexpr DWORD stopMs = 5000;

struct TipState {
    TipState() { Toolkit(); } // so that this one dies before the lock
    XPointerSlots live;       // XToolTip, borrowed
    XThread thread;
};

TipState& State() {
    static TipState state;
    return state;
}

void Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool TryTake(DWORD timeoutMs) {
    const ULONGLONG end = GetTickCount64() + timeoutMs;
    while (!Toolkit().TooltipLock.TryLock()) {
        if (timeoutMs != INFINITE && GetTickCount64() >= end)
            return false;
        XTipThread::Wait(10);
    }
    return true;
}
} // namespace

XTipLock::XTipLock(DWORD timeoutMs) : taken(TryTake(timeoutMs)) {}

XTipLock::~XTipLock() {
    if (taken)
        Toolkit().TooltipLock.Unlock();
}

namespace {
void ServeTips(XEvent* quit, void*) noexcept {
    XMutex& lock = Toolkit().TooltipLock;
    while (!quit->IsSet()) {
        POINT cursor{};
        GetCursorPos(&cursor);
        if (lock.TryLock()) {
            XTipThread::TickAll(cursor);
            lock.Unlock();
        }
        Sleep(tickMs);
        const XLocked locked(lock);
        Pump();
    }
}
} // namespace

void XTipThread::TickAll(POINT cursor) {
    const XPointerSlots& live = State().live;
    for (std::int64_t i = 0; i < live.count; ++i)
        static_cast<XToolTip*>(live.items[i])->TickAt(cursor, GetTickCount());
}

void XTipThread::Add(XToolTip& tip) {
    TipState& state = State();
    if (!state.thread.IsRunning())
        state.thread.Start(ServeTips, nullptr, stopMs);
    for (std::int64_t i = 0; i < state.live.count; ++i)
        if (state.live.items[i] == &tip)
            return;
    state.live.Add(&tip);
}

void XTipThread::Remove(XToolTip& tip) {
    XPointerSlots& live = State().live;
    for (std::int64_t i = live.count - 1; i >= 0; --i)
        if (live.items[i] == &tip)
            live.RemoveAt(i);
}

void XTipThread::StopIfIdle() {
    if (State().live.count == 0)
        State().thread.Stop();
}

bool XTipThread::IsRunning() {
    return State().thread.IsRunning();
}

void XTipThread::Wait(DWORD timeoutMs) {
    const ULONGLONG end = GetTickCount64() + timeoutMs;
    for (;;) {
        MSG unused;
        PeekMessageW(&unused, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE); // answers sent messages
        const ULONGLONG now = GetTickCount64();
        if (now >= end)
            return;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_SENDMESSAGE);
    }
}
