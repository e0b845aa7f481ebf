// The program's entry: from the command line to the last form. The exit code is always 0.
#include "app/StartUp.h"
#include "forms/converting/frmConverting.h"
#include "forms/setup/frmConvertToOpt.h"
#include "host/Settings.h"

#include <objbase.h>

namespace {

void RunProgram(clFileList& files) {
    WriteFirstRunDefaults();
    const wchar_t* commandLine = GetCommandLineW();
    XKeyValueList options;
    options.ParseCommandLine(commandLine);
    const clCommandLine line = ReadCommandLine(options, CommandLineTail(commandLine));
    if (!GatherFiles(line, files))
        return;
    if (!line.skipSetUp) {
        bool convert = false;
        const frmConvertToOpt setUp(convert, files);
        if (!convert)
            return;
    }
    const frmConverting form(files);
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    const HRESULT com = CoInitialize(nullptr);
    SetSettingsRoot(HKEY_CURRENT_USER, L"Software\\Vantrel\\Zephtone");
    {
        clFileList files;
        RunProgram(files);
    }
    if (SUCCEEDED(com))
        CoUninitialize();
    return 0;
}
