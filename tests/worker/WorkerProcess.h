// The real worker as Tonemill would run it, in a job and with a folder that end with the test.
#pragma once

#include "foundation/XArray.h"
#include "foundation/XHandles.h"

#include <string>

[[nodiscard]] std::string FileContent(const XString& path); // empty if it can't be read

class WorkerProcess {
public:
    WorkerProcess();
    ~WorkerProcess();
    WorkerProcess(const WorkerProcess&) = delete;
    WorkerProcess& operator=(const WorkerProcess&) = delete;

    // A folder for its files, which goes with all that is in it.
    [[nodiscard]] XString File(const wchar_t* name) const { return folder + name; }
    XString Write(const wchar_t* name, const char* content) const; // returns the path
    [[nodiscard]] int EntryCount() const;                          // files and folders at its top

    // One after the other may be started.
    // `extra` stands between the six switches and `settings`.
    void Start(const XString& source, const XString& target, const wchar_t* settings = L"",
               const wchar_t* extra = L"");
    void StartWithText(const XString& commandText);
    // The same below a parent that can be ended.
    void StartBelowParent(const XString& source, const XString& target);
    void EndParent();
    void StopReading() { output.Reset(); }
    void Quit() { SetEvent(quitEvent.Get()); }
    // Takes the sign of life, if one was given.
    [[nodiscard]] bool TakeSign();
    // Reads what the pipes hold. Every write must be one line.
    void Drain();
    // True as soon as the condition holds; drains the pipes meanwhile.
    template <class Condition>
    [[nodiscard]] bool WaitUntil(Condition condition, DWORD limitMs = 20000) {
        const ULONGLONG start = GetTickCount64();
        for (;;) {
            Drain();
            if (condition())
                return true;
            if (GetTickCount64() - start > limitMs)
                return false;
            Sleep(5);
        }
    }
    [[nodiscard]] bool HasEnded();
    // Waits for the end; the exit code, or -1 if it did not come.
    [[nodiscard]] int Wait(DWORD limitMs = 20000);
    [[nodiscard]] bool Said(const wchar_t* part) const; // on stdout
    [[nodiscard]] XString ErrorText() const;            // all lines of stderr

    XStringArray lines;
    XStringArray errors;
    XKernelHandle process;

private:
    [[nodiscard]] XString CommandText(const XString& source, const XString& target,
                                      const wchar_t* tail) const;
    [[nodiscard]] XString CommandLine(const XString& commandText);
    void Run(XString commandLine, HANDLE output, HANDLE errorOutput, XKernelHandle& started);

    XString folder; // with backslash
    XKernelHandle job;
    XKernelHandle quitEvent, watchdogEvent;
    XString quitName, watchdogName;
    XKernelHandle parent;
    XFileHandle output, errorOutput; // read ends of message pipes: one read gives one write
};
