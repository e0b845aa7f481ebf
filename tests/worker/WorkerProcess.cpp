#include "WorkerProcess.h"

#include "contract/Worker.h"
#include "foundation/XBuffer.h"
#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "foundation/XFindFile.h"
#include "foundation/XPath.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

XString UniqueName(const wchar_t* prefix) {
    static int number = 0;
    XString name;
    name.Format(L"%s%u-%d", prefix, static_cast<unsigned>(GetCurrentProcessId()), ++number);
    return name;
}

XString ProgramUnderTest(const wchar_t* name) {
    return ProgramFolder() + L"..\\..\\worker_test\\" + name;
}

// Both ends of a pipe that keeps writes apart; the write end is for a child.
void MakePipe(XFileHandle& readEnd, XFileHandle& writeEnd) {
    const XString name = XString(L"\\\\.\\pipe\\") + UniqueName(L"tm-worker-test-");
    readEnd.Reset(CreateNamedPipeW(name, PIPE_ACCESS_INBOUND, PIPE_TYPE_MESSAGE | PIPE_READMODE_MESSAGE, 1, 0,
                                   1 << 20, 0, nullptr));
    SECURITY_ATTRIBUTES inherit{sizeof(inherit), nullptr, TRUE};
    writeEnd.Reset(CreateFileW(name, GENERIC_WRITE, 0, &inherit, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(readEnd.IsValid() && writeEnd.IsValid());
}

void ReadLines(HANDLE pipe, XStringArray& out) {
    wchar_t text[4096];
    DWORD waiting = 0, size = 0;
    while (PeekNamedPipe(pipe, nullptr, 0, nullptr, &waiting, nullptr) && waiting != 0 &&
           ReadFile(pipe, text, sizeof(text) - sizeof(wchar_t), &size, nullptr)) {
        text[size / sizeof(wchar_t)] = 0;
        XString line = text;
        EXPECT_EQ(line.Find(L"\r\n"), line.Count() - 1) << "not one line: " << line.Text();
        line.SetLength(line.Count() - 2);
        out.AddString(line);
    }
}

} // namespace

XString WorkerProcess::Write(const wchar_t* name, const char* content) const {
    XFile file(File(name));
    EXPECT_TRUE(file.Open(GENERIC_WRITE, CREATE_ALWAYS));
    EXPECT_TRUE(file.Write(content, static_cast<DWORD>(std::strlen(content))));
    return File(name);
}

int WorkerProcess::EntryCount() const {
    int count = 0;
    for (XFindFile find(folder, L"*"); find.Next();)
        ++count;
    return count;
}

std::string FileContent(const XString& path) {
    XBuffer bytes;
    if (!ReadWholeFile(path, bytes))
        return {};
    return std::string(reinterpret_cast<const char*>(bytes.data), bytes.size);
}

WorkerProcess::WorkerProcess()
    : folder(TempFolder() + UniqueName(L"tm-worker-") + L"\\"), job(CreateJobObjectW(nullptr, nullptr)),
      quitName(UniqueName(ZtWorker::quitEventPrefix)),
      watchdogName(UniqueName(ZtWorker::watchdogEventPrefix)) {
    EXPECT_TRUE(MakeFolders(folder));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job.Get(), JobObjectExtendedLimitInformation, &limits, sizeof(limits));
    quitEvent.Reset(CreateEventW(nullptr, TRUE, FALSE, quitName));
    watchdogEvent.Reset(CreateEventW(nullptr, TRUE, FALSE, watchdogName));
}

WorkerProcess::~WorkerProcess() {
    job.Reset();
    if (process.IsValid())
        WaitForSingleObject(process.Get(), 5000);
    DeleteTree(folder);
}

XString WorkerProcess::CommandText(const XString& source, const XString& target, const wchar_t* tail) const {
    XString text;
    text.Format(L" -infile=\"%s\" -outfile=\"%s\" -convert_to=\"Fake\" -evtquit=\"%s\" -evtwatchdog=\"%s\""
                L" -batchid=\"1\"%s",
                source.Text(), target.Text(), quitName.Text(), watchdogName.Text(), tail);
    return text;
}

// The command file stands beside the folder, so that the folder shows what the worker left.
XString WorkerProcess::CommandLine(const XString& commandText) {
    const XString path = StripBackslash(folder) + L".cmd";
    XFile file(path);
    EXPECT_TRUE(file.Open(GENERIC_WRITE, CREATE_ALWAYS));
    EXPECT_TRUE(file.Write(commandText.Text(), static_cast<DWORD>(commandText.Count()) * 2));
    return XString(L"\"") + ProgramUnderTest(ZtWorker::executable) + L"\" -ztcmd=\"" + path + L"\"";
}

void WorkerProcess::Run(XString commandLine, HANDLE out, HANDLE err, XKernelHandle& started) {
    STARTUPINFOW start{};
    start.cb = sizeof(start);
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = out;
    start.hStdError = err;
    PROCESS_INFORMATION created{};
    ASSERT_TRUE(CreateProcessW(nullptr, commandLine.Buffer(), nullptr, nullptr, TRUE,
                               CREATE_NO_WINDOW | CREATE_SUSPENDED, nullptr, nullptr, &start, &created))
        << GetLastError();
    AssignProcessToJobObject(job.Get(), created.hProcess);
    ResumeThread(created.hThread);
    CloseHandle(created.hThread);
    started.Reset(created.hProcess);
}

void WorkerProcess::StartWithText(const XString& commandText) {
    lines.Clear();
    errors.Clear();
    ResetEvent(watchdogEvent.Get());
    XFileHandle outWrite, errWrite;
    MakePipe(output, outWrite);
    MakePipe(errorOutput, errWrite);
    Run(CommandLine(commandText), outWrite.Get(), errWrite.Get(), process);
}

void WorkerProcess::Start(const XString& source, const XString& target, const wchar_t* settings,
                          const wchar_t* extra) {
    StartWithText(CommandText(source, target, XString(extra) + L" " + settings));
}

void WorkerProcess::StartBelowParent(const XString& source, const XString& target) {
    XFileHandle outRead, outWrite;
    MakePipe(outRead, outWrite);
    const XString line = CommandLine(CommandText(source, target, L" "));
    Run(XString(L"\"") + ProgramUnderTest(L"fake_worker_parent.exe") + L"\" |" + line, outWrite.Get(),
        nullptr, parent);
    outWrite.Reset();
    DWORD id = 0, size = 0;
    ASSERT_TRUE(ReadFile(outRead.Get(), &id, sizeof(id), &size, nullptr)) << GetLastError();
    process.Reset(OpenProcess(SYNCHRONIZE | PROCESS_QUERY_LIMITED_INFORMATION, FALSE, id));
    ASSERT_TRUE(process.IsValid());
}

void WorkerProcess::EndParent() {
    TerminateProcess(parent.Get(), 0);
    WaitForSingleObject(parent.Get(), 5000);
    parent.Reset();
}

bool WorkerProcess::TakeSign() {
    const bool isSet = WaitForSingleObject(watchdogEvent.Get(), 0) == WAIT_OBJECT_0;
    if (isSet)
        ResetEvent(watchdogEvent.Get());
    return isSet;
}

void WorkerProcess::Drain() {
    ReadLines(errorOutput.Get(), errors);
    ReadLines(output.Get(), lines);
}

bool WorkerProcess::HasEnded() {
    return WaitForSingleObject(process.Get(), 0) == WAIT_OBJECT_0;
}

int WorkerProcess::Wait(DWORD limitMs) {
    if (!WaitUntil([this] { return HasEnded(); }, limitMs))
        return -1;
    Drain();
    DWORD code = 0;
    return GetExitCodeProcess(process.Get(), &code) ? static_cast<int>(code) : -1;
}

bool WorkerProcess::Said(const wchar_t* part) const {
    for (const XString& line : lines)
        if (line.Find(part) != 0)
            return true;
    return false;
}

XString WorkerProcess::ErrorText() const {
    XString text;
    for (const XString& line : errors)
        text += line + L"\n";
    return text;
}
