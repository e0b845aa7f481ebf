// Starts a worker process for one file.
#include "engine/WorkerLaunch.h"

#include "contract/Worker.h"
#include "engine/WorkerText.h"
#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "host/Settings.h"
#include "host/clFileItem.h"

namespace {

constexpr wchar_t commandFilePrefix[] = L"ZtT";

struct clPriorityRow {
    int threadPriority;
    DWORD priorityClass;
};
constexpr clPriorityRow priorityRows[] = {
    // by clWorkerPriority
    {THREAD_PRIORITY_NORMAL, NORMAL_PRIORITY_CLASS},
    {THREAD_PRIORITY_ABOVE_NORMAL, NORMAL_PRIORITY_CLASS},
    {THREAD_PRIORITY_BELOW_NORMAL, NORMAL_PRIORITY_CLASS},
    {THREAD_PRIORITY_IDLE, IDLE_PRIORITY_CLASS},
};
static_assert(sizeof(priorityRows) / sizeof(priorityRows[0]) == priorityIdle + 1);

clWorkerLink& LinkOf(clJobSlot& slot) {
    if (!slot.link)
        slot.link = clWorkerLinkOwner(new clWorkerLink, [](clWorkerLink* link) { delete link; });
    return *slot.link;
}

bool WriteCommandFile(const XString& path, const XString& text) {
    XFile file(path);
    return file.Open(GENERIC_WRITE, CREATE_ALWAYS) &&
           file.Write(text.Text(), static_cast<DWORD>(text.Count()) * sizeof(wchar_t));
}

// A start may fail for reasons that pass: a scanner that holds the program, Wine's page of shared data (see
// scripts/wine-env.sh). One file of thousands must not be lost to them, so it is tried twice.
bool CreateWorker(const XString& commandLine, STARTUPINFOW& start, PROCESS_INFORMATION& made) {
    constexpr int tries = 2;
    for (int i = 0; i < tries; ++i) {
        XString writable = commandLine;
        if (CreateProcessW(nullptr, writable.Buffer(), nullptr, nullptr, TRUE,
                           CREATE_NO_WINDOW | NORMAL_PRIORITY_CLASS, nullptr, nullptr, &start, &made))
            return true;
    }
    return false;
}

bool Fail(clJobSlot& slot, const wchar_t* reason) {
    AddLine(slot.errorText, reason);
    slot.link->outPipe.Close();
    slot.link->errorPipe.Close();
    return false;
}

} // namespace

XString MakeUniqueEvent(XEvent& event, const wchar_t* prefix) {
    XString name;
    DWORD number = GetTickCount();
    event.Close();
    do {
        name = prefix;
        name += UnsignedText(number++);
        event.Create(name);
    } while (event.existed);
    return name;
}

void LaunchWorker(clJobSlot& slot, const clFileItem& item, const clLaunchContext& context) {
    clWorkerLink& link = LinkOf(slot);
    PrepareSlotForFile(slot, item.sourcePath, item.outputPath, item.format.lengthMs);
    clWorkerJob job;
    job.quitEvent = MakeUniqueEvent(link.cancelEvent, ZtWorker::quitEventPrefix);
    job.watchdogEvent = MakeUniqueEvent(link.watchdogEvent, ZtWorker::watchdogEventPrefix);
    job.batchId = context.batchId;
    job.tempFolder = RegReadString(Setting::tempFileLocation);
    // Written or not, the launch goes on: the worker says what it misses, too.
    static_cast<void>(link.commandFile.MakeNew(commandFilePrefix));
    if (!WriteCommandFile(link.commandFile, CommandFileText(slot, job)))
        AddLine(slot.errorText, L"Error creating ztcmd temporary file '" + link.commandFile + L"'");

    XString executable = context.executable;
    if (executable.IsEmpty())
        executable = ProgramFolder() + ZtWorker::executable;
    if (!StartProcess(slot, WorkerCommandLine(executable, link.commandFile)))
        return;
    slot.lastLife = GetTickCount();
    slot.running = true;
}

bool StartProcess(clJobSlot& slot, const XString& commandLine) {
    clWorkerLink& link = LinkOf(slot);
    if (!link.outPipe.Create())
        return Fail(slot, L"Error creating StdOut Pipe");
    if (!link.errorPipe.Create())
        return Fail(slot, L"Error creating StdErr Pipe");
    // Ours only until the child has its own; a copy kept here would hide that the child is gone.
    const XFileHandle outEnd = link.outPipe.TakeWriteEnd();
    const XFileHandle errorEnd = link.errorPipe.TakeWriteEnd();
    STARTUPINFOW start{};
    start.cb = sizeof(start);
    static_assert(sizeof(start) == 104);
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = outEnd.Get();
    start.hStdError = errorEnd.Get();
    PROCESS_INFORMATION made{};
    if (!CreateWorker(commandLine, start, made))
        return Fail(slot, L"Error running Millworker");
    link.process.Reset(made.hProcess);
    link.thread.Reset(made.hThread);
    return true;
}

void ApplyPriority(const clJobSlot& slot) {
    if (!slot.running || !slot.link || slot.priority > priorityIdle)
        return;
    const HANDLE process = slot.link->process.Get();
    const HANDLE thread = slot.link->thread.Get();
    if (!process || !thread)
        return;
    const clPriorityRow& row = priorityRows[slot.priority];
    SetThreadPriority(thread, row.threadPriority);
    SetPriorityClass(process, row.priorityClass);
}
