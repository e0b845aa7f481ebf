// The converting form with 16 busy rows, and the worker that keeps a row busy.
#include "BenchForm.h"

#include "contract/Worker.h"
#include "forms/converting/frmConverting.h"
#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "foundation/XKeyValueList.h"
#include "host/Settings.h"

#include <cstdio>

namespace {

constexpr wchar_t benchKey[] = L"Software\\TonemillBench";
constexpr wchar_t secondsVariable[] = L"TM_BENCH_SECONDS";
constexpr int reportsPerSecond = 20;
constexpr DWORD reportIntervalMs = 1000 / reportsPerSecond;

XString Message(const wchar_t* key, const XString& value) {
    return XString(ZtWorker::messageMark) + ZtWorker::addressee + L": " + key + L": " + value + L"\r\n";
}

void Say(const XString& text) {
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), text.Text(),
              static_cast<DWORD>(text.Count()) * sizeof(wchar_t), &written, nullptr);
}

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

// Every processor's row, tied to none.
XString SixteenSlots() {
    XString text = L"-dspeffect1=\"Multi-CPU Force=-noally";
    for (int i = 1; i <= maximumSlots; ++i)
        text += L" -cpu" + DecimalText(i);
    return text + L"\"";
}

} // namespace

int PlayReportingWorker() {
    XKeyValueList line;
    line.ParseCommandLine(GetCommandLineW());
    if (!line.Has(ZtWorker::commandFileSwitch))
        return -1;
    wchar_t seconds[16];
    GetEnvironmentVariableW(secondsVariable, seconds, 16);
    const int reports = static_cast<int>(XString(seconds).ToInt()) * reportsPerSecond;
    Say(Message(ZtWorker::keyAction, L"Encoding with the encoder of the bench"));
    Say(Message(ZtWorker::keyActionInput, L"From: a source with a name of some length.flac"));
    Say(Message(ZtWorker::keyActionOutput, L"To: an output with a name of some length.mp3"));
    for (int i = 0; i < reports; ++i) {
        Say(Message(ZtWorker::keyPercent, DecimalText(i * 100 / reports)));
        Sleep(reportIntervalMs);
    }
    return 0;
}

int BenchForm(int seconds) {
    RegDeleteTree(HKEY_CURRENT_USER, L"Software", L"TonemillBench");
    SetSettingsRoot(HKEY_CURRENT_USER, benchKey);
    RegWriteString(L"NoSuchEncoder", Setting::lastCodec);
    RegWriteDword(1, Setting::skippedFinish);
    RegWriteString(SixteenSlots(), Setting::effectChain, HKEY_CURRENT_USER,
                   SettingsPath(L"\\zTMCodec\\NoSuchEncoder"));
    SetEnvironmentVariableW(secondsVariable, DecimalText(seconds));

    clFileList files;
    for (int i = 0; i < maximumSlots; ++i)
        files.Append()->sourcePath = L"Q:\\bench\\" + DecimalText(i) + L".wav";
    clConvertingSeams seams;
    wchar_t self[MAX_PATH];
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    seams.workerExecutable = self;

    const double before = ProcessorSeconds();
    const ULONGLONG started = GetTickCount64();
    { const frmConverting form(files, seams); }
    const double elapsed = static_cast<double>(GetTickCount64() - started) / 1000;
    const double used = ProcessorSeconds() - before;
    RegDeleteTree(HKEY_CURRENT_USER, L"Software", L"TonemillBench");
    std::printf("form: %.2f s of processor in %.1f s: %.1f %% of one\n", used, elapsed, used * 100 / elapsed);
    return 0;
}
