// Millworker.exe: converts the one file that its command file tells of.
#include "contract/Worker.h"
#include "foundation/XBuffer.h"
#include "foundation/XFile.h"
#include "foundation/XKeyValueList.h"
#include "worker/Conversion.h"
#include "worker/ForcedEnd.h"
#include "worker/ProcessSettings.h"

namespace {

bool ReadCommand(clWorkerCommand& command, Reporter& reporter) {
    XString path;
    XKeyValueList options;
    options.ParseCommandLine(ProcessCommandLine());
    if (!options.GetValue(ZtWorker::commandFileSwitch, path) || path.IsEmpty()) {
        reporter.Error(L"Error: Millworker is started by Tonemill, with the name of a command file");
        return false;
    }
    XBuffer bytes;
    XString text;
    XString fault;
    if (!ReadWholeFile(path, bytes))
        fault = L"it can't be read";
    else if (!CommandTextFromBytes(bytes.data, bytes.size, text))
        fault = L"it is not a text in UTF-16";
    else if (ParseWorkerCommand(text, command, fault))
        return true;
    reporter.Error(XString(L"Error in the command file '") + path + L"': " + fault);
    return false;
}

clExitCode Work() {
    Reporter reporter;
    clWorkerCommand command;
    if (!ReadCommand(command, reporter))
        return exitNoCommand;
    GuardAgainstCrashes(command.inFile);
    Lifeline lifeline(reporter);
    if (!lifeline.Open(command)) {
        reporter.Error(XString(L"Error converting '") + command.inFile +
                       L"': the events that its command file names are not there");
        return exitNoCommand;
    }
    GuardAgainstHanging(lifeline);
    ApplyProcessSettings(command, reporter);
    Conversion conversion(command, reporter, lifeline);
    switch (conversion.Run()) {
    case stepGood:
        return exitGood;
    case stepCancelled:
        return exitCancelled;
    default:
        return exitFailed;
    }
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    const clExitCode code = Work();
    AllowExit();
    // Threads that a codec left behind must not delay the end, nor crash in it.
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(code));
    return code;
}
