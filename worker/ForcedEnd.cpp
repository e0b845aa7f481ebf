#include "worker/ForcedEnd.h"

#include <atomic>
#include <csignal>
#include <cstdlib>

namespace {

constexpr DWORD hangGraceMs = 2000;  // for a loop that is in the middle of a block
constexpr DWORD cleanGraceMs = 2000; // the lock that cleaning needs may be held by a dead thread
constexpr ULONG filterStack = 64 * 1024;
constexpr std::uintptr_t highestHandle = 0x10000;
constexpr int longestGap = 512; // handles are given out densely: behind so many free ones there are none

std::atomic<TargetFile*> endTarget{nullptr};
std::atomic<bool> isEnding{false};
std::atomic<bool> isExitAllowed{false};
XString crashLine; // made beforehand: a crashed heap gives nothing
HANDLE waitedFor[2];
DWORD waitedCount = 0;

bool IsSameFile(const BY_HANDLE_FILE_INFORMATION& one, const BY_HANDLE_FILE_INFORMATION& other) {
    return one.dwVolumeSerialNumber == other.dwVolumeSerialNumber &&
           one.nFileIndexHigh == other.nFileIndexHigh && one.nFileIndexLow == other.nFileIndexLow;
}

// The dead codec's handle of the output would keep it from being deleted.
void CloseHandlesOf(const XString& path) {
    BY_HANDLE_FILE_INFORMATION wanted{};
    {
        const XFileHandle file(CreateFileW(path, FILE_READ_ATTRIBUTES,
                                           FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                           OPEN_EXISTING, 0, nullptr));
        if (!file.IsValid() || !GetFileInformationByHandle(file.Get(), &wanted))
            return;
    }
    const HANDLE standard[] = {GetStdHandle(STD_OUTPUT_HANDLE), GetStdHandle(STD_ERROR_HANDLE)};
    int gap = 0;
    for (std::uintptr_t value = 4; value < highestHandle && gap < longestGap; value += 4) {
        const auto handle = reinterpret_cast<HANDLE>(value);
        SetLastError(NO_ERROR);
        const DWORD type = GetFileType(handle);
        gap = type == FILE_TYPE_UNKNOWN && GetLastError() == ERROR_INVALID_HANDLE ? gap + 1 : 0;
        if (handle == standard[0] || handle == standard[1] || type != FILE_TYPE_DISK)
            continue;
        BY_HANDLE_FILE_INFORMATION found{};
        if (GetFileInformationByHandle(handle, &found) && IsSameFile(found, wanted))
            CloseHandle(handle);
    }
}

DWORD WINAPI CleanUp(void*) noexcept {
    if (TargetFile* target = endTarget.exchange(nullptr)) {
        if (!target->Temporary().IsEmpty())
            CloseHandlesOf(target->Temporary());
        target->Discard();
    }
    return 0;
}

[[noreturn]] void EndNow(int code) {
    if (!isEnding.exchange(true)) {
        const XKernelHandle thread(CreateThread(nullptr, 0, CleanUp, nullptr, 0, nullptr));
        if (thread.IsValid())
            WaitForSingleObject(thread.Get(), cleanGraceMs);
    }
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(code));
    std::abort();
}

void WriteCrashLine() {
    DWORD written = 0;
    const auto size = static_cast<DWORD>(crashLine.Count()) * static_cast<DWORD>(sizeof(wchar_t));
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), crashLine.Text(), size, &written, nullptr);
}

void EndAfterCrash() {
    // A crash of the cleaning itself ends here at once.
    if (!isEnding)
        WriteCrashLine();
    EndNow(exitCrashed);
}

LONG WINAPI OnCrash(EXCEPTION_POINTERS*) noexcept {
    EndAfterCrash();
    return EXCEPTION_EXECUTE_HANDLER;
}

void OnAbort(int) {
    EndAfterCrash();
}

void OnExit() {
    if (!isExitAllowed)
        EndAfterCrash();
}

DWORD WINAPI WaitForEnd(void*) noexcept {
    WaitForMultipleObjects(waitedCount, waitedFor, FALSE, INFINITE);
    Sleep(hangGraceMs);
    EndNow(exitCancelled);
}

} // namespace

void GuardAgainstCrashes(const XString& source) {
    crashLine = XString(L"Error converting '") + source + L"': a codec or effect crashed\r\n";
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    ULONG guarantee = filterStack; // so that an overflown stack can be told, too
    SetThreadStackGuarantee(&guarantee);
    SetUnhandledExceptionFilter(OnCrash);
    std::signal(SIGABRT, OnAbort);
    std::atexit(OnExit);
}

void SetForcedEndTarget(TargetFile* target) noexcept {
    endTarget = target;
}

void GuardAgainstHanging(const Lifeline& lifeline) {
    waitedFor[waitedCount++] = lifeline.QuitEvent();
    if (lifeline.Parent())
        waitedFor[waitedCount++] = lifeline.Parent();
    const XKernelHandle thread(CreateThread(nullptr, 0, WaitForEnd, nullptr, 0, nullptr));
}

void AllowExit() noexcept {
    isExitAllowed = true;
}
