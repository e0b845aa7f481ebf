// A worker of the tests' own: reads its command file and plays the script of the switch -script, steps
// separated by '|', each a name, ':' and an argument:
//   out:TEXT err:TEXT  a line        part:TEXT  text without line end       flood:N  N long lines
//   beat:              the watchdog event   quit:  waits for the quit event
//   gate:NAME          waits for an event   mark:NAME  sets one             wide:   its own -infile as a line
//   crash:             ends at once
// It gives up every wait after 30 seconds, so that a broken test leaves nothing behind.
#include "contract/Worker.h"
#include "foundation/XFile.h"
#include "foundation/XKeyValueList.h"
#include "foundation/XThread.h"

namespace {

constexpr DWORD patienceMs = 30000;

void Say(DWORD stream, const XString& text) {
    DWORD written = 0;
    WriteFile(GetStdHandle(stream), text.Text(), static_cast<DWORD>(text.Count()) * 2, &written, nullptr);
}

XKernelHandle EventOf(const XString& name) {
    return XKernelHandle(OpenEventW(SYNCHRONIZE | EVENT_MODIFY_STATE, FALSE, name));
}

void Await(const XString& name) {
    if (WaitForSingleObject(EventOf(name).Get(), patienceMs) != WAIT_OBJECT_0)
        TerminateProcess(GetCurrentProcess(), 3);
}

XString ValueOf(const XKeyValueList& options, const wchar_t* name) {
    XString value;
    options.GetValue(name, value);
    return value;
}

void Play(const XString& step, const XKeyValueList& options) {
    const int colon = step.FindChar(L':');
    const XString name = step.Left(colon - 1);
    const XString argument = step.Mid(colon + 1);
    if (name.Equals(L"out"))
        Say(STD_OUTPUT_HANDLE, argument + L"\r\n");
    else if (name.Equals(L"err"))
        Say(STD_ERROR_HANDLE, argument + L"\r\n");
    else if (name.Equals(L"part"))
        Say(STD_OUTPUT_HANDLE, argument);
    else if (name.Equals(L"wide"))
        Say(STD_OUTPUT_HANDLE, ValueOf(options, ZtWorker::switchInFile) + L"\r\n");
    else if (name.Equals(L"beat"))
        SetEvent(EventOf(ValueOf(options, ZtWorker::switchWatchdogEvent)).Get());
    else if (name.Equals(L"quit"))
        Await(ValueOf(options, ZtWorker::switchQuitEvent));
    else if (name.Equals(L"gate"))
        Await(argument);
    else if (name.Equals(L"mark"))
        SetEvent(EventOf(argument).Get());
    else if (name.Equals(L"crash"))
        TerminateProcess(GetCurrentProcess(), 1);
    else if (name.Equals(L"flood"))
        for (std::int64_t i = argument.ToInt(); i > 0; --i)
            Say(STD_OUTPUT_HANDLE, L"a line of the flood that is some fifty characters long\r\n");
}

} // namespace

int main() {
    XKeyValueList commandLine, options;
    commandLine.ParseCommandLine(GetCommandLineW());
    XFile file(ValueOf(commandLine, ZtWorker::commandFileSwitch));
    XString command;
    if (!file.Open(GENERIC_READ, OPEN_EXISTING) || !file.ReadLine(command, true))
        return 2;
    file.Close();
    options.Parse(command);
    XStringArray steps;
    Split(steps, ValueOf(options, L"script"), L"|");
    for (const XString& step : steps)
        Play(step, options);
    return 0;
}
