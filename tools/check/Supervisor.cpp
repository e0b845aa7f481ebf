#include "Supervisor.h"

#include "foundation/XBuffer.h"
#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"
#include "foundation/XUtf8.h"

#include <iterator>
#include <vector>

namespace {

constexpr DWORD lookEveryMs = 5;
constexpr int notLoaded = 2; // exit code of a child
constexpr DWORD thrownByGcc = 0x20474343, thrownByMsvc = 0xE06D7363;

struct ViewKind {
    using Value = void*;
    static Value None() noexcept { return nullptr; }
    static void Close(Value v) noexcept { UnmapViewOfFile(v); }
};
using XView = XOwned<ViewKind>;

SECURITY_ATTRIBUTES Inherited() {
    return {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
}

XString HandleText(HANDLE handle) {
    return UnsignedText(static_cast<std::uint64_t>(reinterpret_cast<ULONG_PTR>(handle)));
}

HANDLE HandleFrom(const wchar_t* text) {
    return reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(XString(text).ToInt()));
}

// What the child's side of a stage has to share with this one.
struct Channel {
    XKernelHandle memory;
    XView view;
    XFileHandle readEnd, writeEnd;
    [[nodiscard]] CheckState& State() const { return *static_cast<CheckState*>(view.Get()); }

    bool Create() {
        SECURITY_ATTRIBUTES security = Inherited();
        memory.Reset(CreateFileMappingW(INVALID_HANDLE_VALUE, &security, PAGE_READWRITE, 0,
                                        sizeof(CheckState), nullptr));
        view.Reset(memory.IsValid() ? MapViewOfFile(memory.Get(), FILE_MAP_ALL_ACCESS, 0, 0, 0) : nullptr);
        HANDLE from = nullptr, to = nullptr;
        if (!view.IsValid() || !CreatePipe(&from, &to, &security, 1 << 16))
            return false;
        readEnd.Reset(from);
        writeEnd.Reset(to);
        SetHandleInformation(from, HANDLE_FLAG_INHERIT, 0);
        return true;
    }
};

class Stage {
public:
    Stage(const Task& task, int number, Output& output) : task(task), number(number), output(output) {}
    // The child's exit code; -1 if it could not be started.
    int Run();

private:
    bool Start(const XString& folder);
    void Watch();
    void TakeLines();
    void TellEnd(DWORD exitCode);

    const Task& task;
    int number;
    Output& output;
    Channel channel;
    XKernelHandle process, job;
    std::vector<char> pending; // of a line that has not come whole
    bool isHung = false;
};

bool Stage::Start(const XString& folder) {
    if (!channel.Create())
        return false;
    XString line = Quote(ProgramPath()) + L" " + stageSwitch + L" " + DecimalText(number) + L" " +
                   HandleText(channel.memory.Get()) + L" " + HandleText(channel.writeEnd.Get()) + L" " +
                   Quote(StripBackslash(folder)) + L" " + Quote(task.judge) + L" " + Quote(task.plugin);
    for (const XString& sample : task.samples)
        line += XString(L" ") + Quote(sample);
    // What the plug-in prints is not ours to show.
    SECURITY_ATTRIBUTES security = Inherited();
    const XFileHandle nothing(CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE,
                                          FILE_SHARE_READ | FILE_SHARE_WRITE, &security, OPEN_EXISTING, 0,
                                          nullptr));
    STARTUPINFOW start{};
    start.cb = sizeof(start);
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = start.hStdOutput = start.hStdError = nothing.Get();
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(nullptr, line.Buffer(), nullptr, nullptr, TRUE, CREATE_SUSPENDED, nullptr, nullptr,
                        &start, &started))
        return false;
    process.Reset(started.hProcess);
    job.Reset(CreateJobObjectW(nullptr, nullptr)); // what the plug-in starts ends with it
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job.Get(), JobObjectExtendedLimitInformation, &limits, sizeof(limits));
    AssignProcessToJobObject(job.Get(), started.hProcess);
    ResumeThread(started.hThread);
    CloseHandle(started.hThread);
    channel.writeEnd.Reset();
    return true;
}

void Stage::TakeLines() {
    DWORD waiting = 0;
    while (PeekNamedPipe(channel.readEnd.Get(), nullptr, 0, nullptr, &waiting, nullptr) && waiting != 0) {
        std::vector<char> bytes(waiting);
        DWORD read = 0;
        if (!ReadFile(channel.readEnd.Get(), bytes.data(), waiting, &read, nullptr))
            return;
        for (DWORD i = 0; i < read; ++i) {
            if (bytes[i] != '\n') {
                pending.push_back(bytes[i]);
                continue;
            }
            pending.push_back(0);
            XString text;
            text.SetLength(Utf8ToWide(pending.data() + 1, nullptr, 0));
            Utf8ToWide(pending.data() + 1, text.Buffer(), text.Capacity());
            text.FitLength();
            output.Tell(static_cast<Finding>(pending[0]), text);
            pending.clear();
        }
    }
}

void Stage::Watch() {
    while (WaitForSingleObject(process.Get(), lookEveryMs) == WAIT_TIMEOUT) {
        TakeLines();
        const CheckState& state = channel.State();
        const ULONGLONG started = state.startedMs;
        if (started == 0 || GetTickCount64() - started < state.limitMs)
            continue;
        isHung = true;
        TerminateProcess(process.Get(), 1);
        WaitForSingleObject(process.Get(), INFINITE);
    }
    TakeLines();
}

void Stage::TellEnd(DWORD exitCode) {
    const CheckState& state = channel.State();
    if (state.isFinished)
        return;
    const bool isInCall = state.startedMs != 0;
    const XString call =
        isInCall ? XString(const_cast<const wchar_t*>(state.call))
                 : XString(L"between two calls, last after ") + const_cast<const wchar_t*>(state.call);
    XString code;
    code.ToHexShort(state.crashCode);
    if (isHung)
        output.Tell(Finding::broken,
                    call + L" did not return within " + DecimalText(state.limitMs / 1000) + L" s");
    else if (state.crashCode == thrownByGcc || state.crashCode == thrownByMsvc || state.thrownCode != 0)
        output.Tell(Finding::broken,
                    call + L": a C++ exception left the plug-in, or it called abort after one");
    else if (state.crashCode != 0)
        output.Tell(Finding::broken, call + L": the plug-in crashed there (exception 0x" + code + L")");
    else
        output.Tell(Finding::broken, call + L": the plug-in ended the process there (exit code " +
                                         UnsignedText(exitCode) + L"), or crashed beyond catching");
    output.Tell(Finding::note, XString(L"not checked to its end: the ") + stages[number].what);
}

int Stage::Run() {
    XString folder = TempFolder() + L"ZtCheck" + UnsignedText(GetCurrentProcessId()) + L"\\";
    MakeFolders(folder);
    DWORD exitCode = 0;
    const bool isStarted = Start(folder);
    if (isStarted) {
        Watch();
        GetExitCodeProcess(process.Get(), &exitCode);
        if (exitCode != notLoaded || channel.State().isFinished || channel.State().startedMs != 0)
            TellEnd(exitCode);
    }
    job.Reset();
    DeleteTree(folder);
    return isStarted ? static_cast<int>(exitCode) : -1;
}

// ---- the child ----

CheckState* childState = nullptr;

LONG CALLBACK SeeThrow(EXCEPTION_POINTERS* what) {
    const DWORD code = what->ExceptionRecord->ExceptionCode;
    if (code == thrownByGcc || code == thrownByMsvc)
        childState->thrownCode = code;
    return EXCEPTION_CONTINUE_SEARCH;
}

LONG CALLBACK EndOnCrash(EXCEPTION_POINTERS* what) {
    childState->crashCode = what->ExceptionRecord->ExceptionCode;
    TerminateProcess(GetCurrentProcess(), 3);
    return EXCEPTION_EXECUTE_HANDLER;
}

} // namespace

XString CheckedProgramFolder() {
    XString folder = StripBackslash(ProgramFolder()), own;
    PopLastFolder(own, folder);
    return AddBackslash(folder);
}

bool RunStages(const Task& task, Output& output) {
    for (int number = 0; number < static_cast<int>(std::size(stages)); ++number) {
        if (stages[number].kind != task.kind ||
            (!task.only.IsEmpty() && XString(stages[number].what).Find(task.only) == 0))
            continue;
        const int code = Stage(task, number, output).Run();
        if (code == -1)
            output.Tell(Finding::broken, L"the checker can't start itself");
        if (code == -1 || code == notLoaded)
            return false;
    }
    return true;
}

int RunStageInChild(int count, wchar_t** arguments) {
    constexpr int fixed = 6;
    if (count < fixed)
        return notLoaded;
    const auto number = static_cast<std::size_t>(XString(arguments[0]).ToInt());
    const XView view(MapViewOfFile(HandleFrom(arguments[1]), FILE_MAP_ALL_ACCESS, 0, 0, 0));
    if (number >= std::size(stages) || !view.IsValid())
        return notLoaded;
    childState = static_cast<CheckState*>(view.Get());
    AddVectoredExceptionHandler(1, SeeThrow);
    SetUnhandledExceptionFilter(EndOnCrash);
    Report report(*childState, HandleFrom(arguments[2]));
    // Of its own: a library that was freed with threads in it must not be unloaded under them.
    static Library library;
    XString reason;
    SetDllDirectoryW(CheckedProgramFolder());
    const XString plugin = arguments[5];
    const bool isLoaded =
        report.In(L"loading the library", [&] { return library.Load(plugin, stages[number].kind, reason); });
    if (!isLoaded) {
        report.Broken(reason);
        TerminateProcess(GetCurrentProcess(), notLoaded);
    }
    Checked checked{report, library, CheckedProgramFolder(), arguments[4], AddBackslash(arguments[3]), {}};
    for (int i = fixed; i < count; ++i)
        checked.samples.AddString(arguments[i]);
    stages[number].run(checked);
    report.In(L"freeing the library", [&] { library.module.Reset(); });
    childState->isFinished = 1;
    TerminateProcess(GetCurrentProcess(), 0);
    return 0;
}
