#include "worker/Lifeline.h"

#include <cstring>

#include <winternl.h>

namespace {

constexpr ULONGLONG signIntervalMs = 250;

// 0 if it can't be told. A snapshot of all processes would say the same after some milliseconds.
DWORD ParentId() {
    PROCESS_BASIC_INFORMATION self{};
    const NTSTATUS status =
        NtQueryInformationProcess(GetCurrentProcess(), ProcessBasicInformation, &self, sizeof(self), nullptr);
    return NT_SUCCESS(status) ? static_cast<DWORD>(self.InheritedFromUniqueProcessId) : 0;
}

// 0 if it can't be told; in units of 100 ns.
ULONGLONG StartTime(HANDLE process) {
    FILETIME created{}, ended{}, kernel{}, user{};
    if (!GetProcessTimes(process, &created, &ended, &kernel, &user))
        return 0;
    ULONGLONG time = 0;
    static_assert(sizeof(time) == sizeof(created));
    std::memcpy(&time, &created, sizeof(time));
    return time;
}

// The process that started this one; none if its id belongs to a younger process by now.
XKernelHandle OpenParent() {
    XKernelHandle process(OpenProcess(SYNCHRONIZE | PROCESS_QUERY_LIMITED_INFORMATION, FALSE, ParentId()));
    if (process.IsValid() && StartTime(process.Get()) > StartTime(GetCurrentProcess()))
        process.Reset();
    return process;
}

bool IsSignalled(const XKernelHandle& handle) {
    return handle.IsValid() && WaitForSingleObject(handle.Get(), 0) == WAIT_OBJECT_0;
}

} // namespace

bool Lifeline::Open(const clWorkerCommand& command) {
    quitEvent.Reset(OpenEventW(SYNCHRONIZE, FALSE, command.quitEvent));
    watchdogEvent.Reset(OpenEventW(EVENT_MODIFY_STATE, FALSE, command.watchdogEvent));
    parent = OpenParent();
    return quitEvent.IsValid() && watchdogEvent.IsValid();
}

bool Lifeline::Pulse() {
    if (IsSignalled(quitEvent) || reporter.IsBroken())
        return false;
    const ULONGLONG now = GetTickCount64();
    if (lastSign != 0 && now - lastSign < signIntervalMs)
        return true;
    lastSign = now;
    SetEvent(watchdogEvent.Get());
    return !IsSignalled(parent);
}
