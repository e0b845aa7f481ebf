// Entry of every test program. A crash under Wine must end the process with a code that is not 0:
// left to itself it may hang in a debugger box or report success.
#include <gtest/gtest.h>

#ifdef _WIN32
#include <windows.h>

#include <cstdio>

namespace {
LONG WINAPI ReportCrash(EXCEPTION_POINTERS* crash) noexcept {
    std::fprintf(stderr, "crashed with code %08lx at %p\n", crash->ExceptionRecord->ExceptionCode,
                 crash->ExceptionRecord->ExceptionAddress);
    std::fflush(stderr);
    TerminateProcess(GetCurrentProcess(), 99);
    return EXCEPTION_EXECUTE_HANDLER;
}
} // namespace
#endif

int main(int count, char** arguments) {
#ifdef _WIN32
    SetUnhandledExceptionFilter(ReportCrash);
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
#endif
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
