// The program-wide generator.
#include "foundation/XRandom.h"

#include <windows.h>

namespace {

DWORD SeedFromClocks() noexcept {
    SYSTEMTIME now;
    GetSystemTime(&now);
    const DWORD parts[] = {now.wYear, now.wHour, now.wMinute, now.wSecond, now.wMilliseconds};
    DWORD squares = 0;
    for (const DWORD part : parts)
        squares += part * part;
    LARGE_INTEGER counter;
    QueryPerformanceCounter(&counter);
    return squares * counter.LowPart + static_cast<DWORD>(counter.HighPart) + GetTickCount();
}

class Generator {
public:
    Generator() noexcept : twister(SeedFromClocks()) { InitializeCriticalSection(&lock); }
    ~Generator() { DeleteCriticalSection(&lock); }
    std::uint32_t Below(std::uint32_t range) noexcept {
        EnterCriticalSection(&lock);
        const std::uint32_t number = twister.Below(range);
        LeaveCriticalSection(&lock);
        return number;
    }

private:
    XMersenneTwister twister;
    CRITICAL_SECTION lock;
};

Generator generator; // made before the entry point runs

} // namespace

std::uint32_t RandomBelow(std::uint32_t range) noexcept {
    return generator.Below(range);
}
