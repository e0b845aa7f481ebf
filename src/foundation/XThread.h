// Mutex, event and worker thread over kernel objects. A null handle makes every operation idle.
#pragma once

#include "foundation/XHandles.h"
#include "foundation/XString.h"

class XMutex {
public:
    void Create(const wchar_t* name = nullptr);
    void Lock();
    [[nodiscard]] bool TryLock();
    void Unlock();
    void Close();

    XKernelHandle handle;
    bool held = false;    // this object has taken the lock
    bool existed = false; // the name was in use when the object was made
};

// Takes nothing by itself; releases at the end of the scope what is held.
class XMutexScope {
public:
    explicit XMutexScope(XMutex& mutex) noexcept : mutex(mutex) {}
    ~XMutexScope() {
        if (mutex.held)
            mutex.Unlock();
    }
    XMutexScope(const XMutexScope&) = delete;
    XMutexScope& operator=(const XMutexScope&) = delete;

private:
    XMutex& mutex;
};

class XEvent { // manual reset
public:
    void Create(const wchar_t* name = nullptr);
    [[nodiscard]] bool IsSet() const;
    void Set();
    void Reset();
    void Close();

    XKernelHandle handle;
    bool existed = false;
};

class XThread {
public:
    // Ends when it sees the event set.
    using Function = void (*)(XEvent* quit, void* argument);

    XThread() = default;
    ~XThread();
    XThread(const XThread&) = delete;
    XThread& operator=(const XThread&) = delete;

    // Stops an earlier thread first. `timeoutMs` bounds a later Stop, 0 is without limit.
    void Start(Function function, void* argument, DWORD timeoutMs);
    // A thread that does not end in time is suspended, never terminated; Stop again resumes it.
    void Stop();
    [[nodiscard]] bool IsRunning() const;

    XEvent quitEvent;
    XKernelHandle thread;
    DWORD timeout = 0; // milliseconds
    bool suspended = false;
};
