// Mutex, event and worker thread.
#include "foundation/XThread.h"

#include <algorithm>
#include <memory>
#include <process.h>

namespace {

constexpr DWORD pollMs = 25;
constexpr int nameUnits = 100;

// The event's name is what hands the event to the thread: no handle crosses over.
struct StartRecord {
    wchar_t eventName[nameUnits] = {};
    XThread::Function function = nullptr;
    void* argument = nullptr;
};

unsigned __stdcall RunThread(void* start) noexcept {
    const std::unique_ptr<StartRecord> record(static_cast<StartRecord*>(start));
    XEvent quit;
    quit.Create(record->eventName);
    record->function(&quit, record->argument);
    return 0;
}

bool HasEnded(HANDLE thread, DWORD waitMs) noexcept {
    return WaitForSingleObject(thread, waitMs) == WAIT_OBJECT_0;
}

// An abandoned mutex has changed hands as well.
bool IsTaken(DWORD waited) noexcept {
    return waited == WAIT_OBJECT_0 || waited == WAIT_ABANDONED;
}

} // namespace

void XMutex::Create(const wchar_t* name) {
    SetLastError(0);
    const HANDLE made = CreateMutexW(nullptr, FALSE, name);
    existed = GetLastError() == ERROR_ALREADY_EXISTS;
    handle.Reset(made);
}

void XMutex::Lock() {
    if (!handle.IsValid())
        return;
    WaitForSingleObject(handle.Get(), INFINITE);
    held = true;
}

bool XMutex::TryLock() {
    if (!handle.IsValid() || !IsTaken(WaitForSingleObject(handle.Get(), 0)))
        return false;
    held = true;
    return true;
}

void XMutex::Unlock() {
    if (!handle.IsValid())
        return;
    // Cleared first: once released, the flag belongs to the next holder.
    held = false;
    ReleaseMutex(handle.Get());
}

void XMutex::Close() {
    handle.Reset();
}

void XEvent::Create(const wchar_t* name) {
    SetLastError(0);
    const HANDLE made = CreateEventW(nullptr, TRUE, FALSE, name);
    existed = GetLastError() == ERROR_ALREADY_EXISTS;
    handle.Reset(made);
}

bool XEvent::IsSet() const {
    return handle.IsValid() && WaitForSingleObject(handle.Get(), 0) == WAIT_OBJECT_0;
}

void XEvent::Set() {
    if (handle.IsValid())
        SetEvent(handle.Get());
}

void XEvent::Reset() {
    if (handle.IsValid())
        ResetEvent(handle.Get());
}

void XEvent::Close() {
    handle.Reset();
}

XThread::~XThread() {
    Stop();
}

void XThread::Start(Function function, void* argument, DWORD timeoutMs) {
    if (thread.IsValid()) {
        Stop();
        thread.Reset();
        quitEvent.Close();
        suspended = false;
    }
    timeout = timeoutMs;
    auto record = std::make_unique<StartRecord>();
    record->function = function;
    record->argument = argument;
    XString name;
    DWORD number = GetTickCount();
    do
        name.Format(L"TRDEVTQ-%d", static_cast<int>(number++));
    while (quitEvent.Create(name), quitEvent.existed);
    std::copy(name.Text(), name.Text() + name.StoredLength(), record->eventName);
    const auto started = _beginthreadex(nullptr, 0, RunThread, record.get(), 0, nullptr);
    thread.Reset(reinterpret_cast<HANDLE>(started));
    if (thread.IsValid())
        static_cast<void>(record.release()); // the thread frees it
}

void XThread::Stop() {
    if (!thread.IsValid())
        return;
    if (suspended) {
        ResumeThread(thread.Get());
        suspended = false;
    }
    quitEvent.Set();
    const DWORD begin = GetTickCount();
    while (!HasEnded(thread.Get(), pollMs)) {
        if (timeout != 0 && GetTickCount() - begin > timeout) {
            SuspendThread(thread.Get());
            suspended = true;
            return;
        }
    }
}

bool XThread::IsRunning() const {
    return thread.IsValid() && !HasEnded(thread.Get(), 0);
}
