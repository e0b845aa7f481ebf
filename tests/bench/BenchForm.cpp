// The converting form with 16 busy rows.
#include "BenchForm.h"

#include "../support/ReportingWorker.h"
#include "host/Settings.h"

#include <cstdio>

namespace {

double ProcessorSeconds() {
    FILETIME made{};
    FILETIME ended{};
    FILETIME kernel{};
    FILETIME user{};
    GetProcessTimes(GetCurrentProcess(), &made, &ended, &kernel, &user);
    const auto ticks = [](const FILETIME& time) {
        return static_cast<double>(std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime);
    };
    return (ticks(kernel) + ticks(user)) / 1e7;
}

} // namespace

int BenchForm(int seconds) {
    constexpr wchar_t benchKey[] = L"TonemillBench";
    RegDeleteTree(HKEY_CURRENT_USER, L"Software", benchKey);
    SetSettingsRoot(HKEY_CURRENT_USER, XString(L"Software\\") + benchKey);
    RegWriteDword(1, Setting::skippedFinish);
    RegWriteDword(1, Setting::noDisplayError); // nobody is there to close it
    clFileList files;
    const clConvertingSeams seams = PrepareReportingBatch(files, {maximumSlots, maximumSlots, 1, seconds});

    const double before = ProcessorSeconds();
    const ULONGLONG started = GetTickCount64();
    { const frmConverting form(files, seams); }
    const double elapsed = static_cast<double>(GetTickCount64() - started) / 1000;
    const double used = ProcessorSeconds() - before;
    RegDeleteTree(HKEY_CURRENT_USER, L"Software", benchKey);
    std::printf("form: %.2f s of processor in %.1f s: %.1f %% of one\n", used, elapsed, used * 100 / elapsed);
    return 0;
}
