#include "send/Sending.h"

#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "foundation/XHandles.h"
#include "foundation/XPath.h"
#include "foundation/XTempFile.h"
#include "host/DecoderCatalogue.h"
#include "host/DroppedFiles.h"
#include "host/HandOff.h"
#include "host/ListFile.h"
#include "send/Gathering.h"
#include "send/NamedTurn.h"
#include "send/SendText.h"

namespace {

constexpr wchar_t program[] = L"Tonemill.exe";
constexpr ULONGLONG takeLimitMs = 60000;
constexpr ULONGLONG formLimitMs = 5000;
constexpr DWORD turnLimitMs = 10000;
constexpr DWORD pollMs = 50;

void FilesOf(const XStringArray& paths, XStringArray& found) {
    XStringArray extensions;
    EnumerateDecoders(false, &extensions, nullptr);
    clFileList files;
    AddDroppedFiles(files, paths, extensions);
    for (const clFileItem& file : files)
        found.AddString(file.sourcePath);
}

bool WriteList(const XString& path, const XStringArray& files) {
    XFile file(path);
    return file.Open(GENERIC_WRITE, CREATE_ALWAYS, false, false) && AppendWhole(file, ListText(files));
}

XKernelHandle StartWithList(const XString& programFolder, const XString& list) {
    XString commandLine = Quote(programFolder + program) + L" -list_to_conv=" + Quote(list);
    STARTUPINFOW start{};
    start.cb = sizeof(start);
    PROCESS_INFORMATION process{};
    // Not in the folder that was clicked in, which could be neither renamed nor removed meanwhile.
    if (!CreateProcessW(nullptr, commandLine.Buffer(), nullptr, nullptr, FALSE, 0, nullptr, programFolder,
                        &start, &process))
        return XKernelHandle();
    CloseHandle(process.hThread);
    return XKernelHandle(process.hProcess);
}

// Tonemill deletes the list that it takes, and leaves the one that it gives to a form that is there.
void WaitUntilTaken(HANDLE process, const XString& list) {
    const ULONGLONG start = GetTickCount64();
    while (IsFile(list) && GetTickCount64() - start < takeLimitMs)
        if (WaitForSingleObject(process, pollMs) == WAIT_OBJECT_0)
            return;
}

// A form on the screen takes what comes next.
void WaitForForm(HANDLE process) {
    const ULONGLONG start = GetTickCount64();
    while (GetTickCount64() - start < formLimitMs) {
        const XKernelHandle form(OpenEventW(SYNCHRONIZE, FALSE, handOffEventName));
        if (form.IsValid() || WaitForSingleObject(process, pollMs) == WAIT_OBJECT_0)
            return;
    }
}

} // namespace

clSent SendToTonemill(const XString& programFolder, const XStringArray& paths) {
    XStringArray files;
    FilesOf(paths, files);
    if (files.IsEmpty())
        return clSent::nothingToConvert;
    XTempFile list;
    if (!list.MakeNew(L"ZtS") || !WriteList(list, files))
        return clSent::failed;
    // A click that was so slow that it was cut in two still ends in one form: the second Tonemill starts
    // when the first can take its files.
    const clNamedTurn turn(UsualGatheringPlace(programFolder).name + L"-starts", turnLimitMs);
    // The user clicked in Explorer: what is started here may come to the front in its place.
    AllowSetForegroundWindow(ASFW_ANY);
    const XKernelHandle process = StartWithList(programFolder, list);
    if (!process.IsValid())
        return clSent::failed;
    WaitUntilTaken(process.Get(), list);
    if (!IsFile(list))
        list.Clear(); // gone, and perhaps another's by now
    WaitForForm(process.Get());
    return clSent::sent;
}
