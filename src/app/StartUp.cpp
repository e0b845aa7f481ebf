// The command line's effects on files, settings and the user.
#include "app/StartUp.h"

#include "app/FileDialog.h"
#include "engine/ProgressText.h"
#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "foundation/XHandles.h"
#include "foundation/XPath.h"
#include "host/HandOff.h"
#include "host/ListFile.h"
#include "host/Settings.h"
#include "naming/ExtraElements.h"

namespace {

constexpr wchar_t configProgram[] = L"ZtConfig.exe";

void ShowBox(const XString& text) {
    MessageBoxW(nullptr, text, programCaption, MB_TOPMOST);
}

void StartConfig() {
    XString commandLine = Quote(ProgramFolder() + configProgram);
    STARTUPINFOW start{};
    start.cb = sizeof(start);
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, commandLine.Buffer(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                        &process))
        return;
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

} // namespace

void LoadExtraElements(const XString& path) {
    XBuffer image;
    if (!ReadWholeFile(path, image))
        return;
    zTMExtraElements.Clear();
    if (image.size > 0)
        zTMExtraElements.Deserialize(image.data, static_cast<std::int64_t>(image.size));
}

void TakeListFile(const XString& path, clFileList& files) {
    XStringArray lines;
    if (!ReadListFile(path, lines))
        return;
    files.AppendAllUnique(lines);
    DeleteOneFile(path);
}

void SignalEvent(const XString& name) {
    const XKernelHandle event(CreateEventW(nullptr, TRUE, FALSE, name));
    if (event.IsValid())
        SetEvent(event.Get());
}

bool CarryOut(const clCommandLine& line, clFileList& files) {
    if (!line.extrasFile.IsEmpty())
        LoadExtraElements(line.extrasFile);
    if (!line.codec.IsEmpty())
        RegWriteString(line.codec, Setting::lastCodec);
    switch (line.command) {
    case clCommand::goOn:
        return true;
    case clCommand::loadList:
        if (line.isListAlone && TryHandOff(line.listFile))
            return false;
        TakeListFile(line.listFile, files);
        if (!line.signalEvent.IsEmpty())
            SignalEvent(line.signalEvent);
        return true;
    case clCommand::startConfig:
        StartConfig();
        return false;
    case clCommand::refuseInstall:
        ShowBox(L"The codec installed is not compatible with the newer Zephtone (R12 and above)");
        break;
    case clCommand::unknown:
        break;
    }
    ShowBox(L"Unknown Command Line: '" + line.text + L"'");
    return false;
}

bool GatherFiles(const clCommandLine& line, clFileList& files) {
    if (!CarryOut(line, files))
        return false;
    if (files.Count() == 0)
        ShowFileDialog(files);
    return files.Count() != 0;
}
