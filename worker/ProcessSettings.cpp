#include "worker/ProcessSettings.h"

#include "foundation/XFileSystem.h"

namespace {

struct PriorityRow {
    clWorkerPriority priority;
    int thread;
    DWORD process;
};
// The numbers that Tonemill sets when the user changes the priority of a running worker.
constexpr PriorityRow priorityRows[] = {
    {workerHigh, THREAD_PRIORITY_ABOVE_NORMAL, NORMAL_PRIORITY_CLASS},
    {workerLow, THREAD_PRIORITY_BELOW_NORMAL, NORMAL_PRIORITY_CLASS},
    {workerIdle, THREAD_PRIORITY_IDLE, IDLE_PRIORITY_CLASS},
};

void BindToProcessor(int processor) {
    DWORD_PTR own = 0, machine = 0;
    if (processor < 1 || processor > 64 || !GetProcessAffinityMask(GetCurrentProcess(), &own, &machine))
        return;
    const DWORD_PTR wanted = DWORD_PTR{1} << (processor - 1);
    if ((machine & wanted) != 0)
        SetProcessAffinityMask(GetCurrentProcess(), wanted);
}

} // namespace

void ApplyProcessSettings(const clWorkerCommand& command, Reporter& reporter) {
    BindToProcessor(command.processor);
    for (const PriorityRow& row : priorityRows) {
        if (row.priority != command.priority)
            continue;
        SetThreadPriority(GetCurrentThread(), row.thread);
        SetPriorityClass(GetCurrentProcess(), row.process);
    }
    if (command.tempFolder.IsEmpty())
        return;
    if (!MakeFolders(command.tempFolder)) {
        reporter.Information(XString(L"The folder for temporary files '") + command.tempFolder +
                             L"' can't be used; the system's own serves instead.");
        return;
    }
    SetEnvironmentVariableW(L"TMP", command.tempFolder);
    SetEnvironmentVariableW(L"TEMP", command.tempFolder);
}
