// ZtCheck.exe: tells whether a plug-in library keeps the contract, export by export and key by key.
#include "Supervisor.h"

#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"

namespace {

enum ExitCode { exitKept = 0, exitBroken = 1, exitNotChecked = 2 };

constexpr const wchar_t* usage[] = {
    L"Checks whether a plug-in library keeps the contract of contract/Plugin.h.",
    L"",
    L"    ZtCheck.exe PLUGIN.dll [-decoder=DECODER.dll] [-only=STAGE] [sample files...]",
    L"",
    L"The kind is that of its folder (decoder, encoder, DSPs), else that of its exports. Sample files are",
    L"for decoders. An encoder's outputs are read by the decoder that is named, else by one of the program",
    L"that this folder belongs to. STAGE is keys, answers, panel, encoding, audio, formats, refusal or",
    L"samples. Exit code: 0 all kept, 1 something is broken, 2 not checked.",
};
constexpr wchar_t decoderSwitch[] = L"-decoder=", onlySwitch[] = L"-only=";

XString FullPath(const wchar_t* path) {
    wchar_t full[4096] = L"";
    const DWORD count = GetFullPathNameW(path, 4096, full, nullptr);
    return count == 0 || count >= 4096 ? XString(path) : XString(full);
}

// Beside the program is where the loader looks first; then come the system's own.
bool IsThere(const XString& library) {
    if (IsFile(CheckedProgramFolder() + library))
        return true;
    const XModule found(
        LoadLibraryExW(library, nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_SEARCH_SYSTEM32));
    return found.IsValid() || library.StartsWith(L"api-ms-") || library.StartsWith(L"ext-ms-");
}

bool CheckImports(const PeImage& image, Output& output) {
    bool isComplete = true;
    for (const XString& library : image.imports)
        if (!IsThere(library)) {
            isComplete = false;
            output.Tell(Finding::broken,
                        XString(L"it needs ") + library +
                            L", which is neither beside the program nor part of the system: link it "
                            L"statically or put it beside Tonemill.exe");
        }
    return isComplete;
}

// What the file itself tells. False if there is no point in loading it.
bool CheckFile(Task& task, Output& output) {
    XBuffer bytes;
    PeImage image;
    if (!ReadWholeFile(task.plugin, bytes)) {
        output.Tell(Finding::broken, L"the file can't be read");
        return false;
    }
    ReadPeImage(bytes.data, bytes.size, image);
    if (!image.is64Bit || !image.isLibrary) {
        output.Tell(Finding::broken, !image.isPe      ? L"this is no library of Windows"
                                     : !image.is64Bit ? L"this is not a 64-bit library (x64)"
                                                      : L"this is a program, not a library");
        return false;
    }
    if (!DetectKind(task.plugin, image, task.kind)) {
        output.Tell(Finding::broken,
                    L"there is no export of a decoder, an encoder (ENC_...) or an effect (DSP_...)");
        return false;
    }
    const KindRow& row = RowOf(task.kind);
    output.Line(XString(L"        It is taken for ") + row.name + L".");
    XStringArray faults;
    FindExportFaults(image, row, faults);
    for (const XString& fault : faults)
        output.Tell(Finding::broken, fault);
    if (faults.IsEmpty())
        output.Tell(Finding::ok, XString(L"all ") + DecimalText(row.exportCount) + L" exports are there");
    const bool isComplete = CheckImports(image, output);
    if (isComplete)
        output.Tell(Finding::ok, L"everything that it imports is there");
    if (!IsFile(StripExtension(task.plugin) + L".ico"))
        output.Tell(Finding::note, L"there is no icon beside it (a file of the same name with .ico)");
    return faults.IsEmpty() && isComplete;
}

ExitCode Check(Task& task) {
    Output output;
    output.Line(XString(L"Checking ") + task.plugin);
    const bool isChecked = CheckFile(task, output) && RunStages(task, output);
    output.Line(NameOf(task.plugin) + L": " + DecimalText(output.Count(Finding::ok)) + L" ok, " +
                DecimalText(output.Count(Finding::broken)) + L" BROKEN, " +
                DecimalText(output.Count(Finding::note)) + L" notes" +
                (isChecked ? L"" : L"; it could not be loaded"));
    return !isChecked ? exitNotChecked : output.Count(Finding::broken) != 0 ? exitBroken : exitKept;
}

} // namespace

int wmain(int count, wchar_t** arguments) {
    if (count > 1 && XString(arguments[1]) == stageSwitch)
        return RunStageInChild(count - 2, arguments + 2);
    Task task;
    for (int i = 1; i < count; ++i) {
        const XString argument = arguments[i];
        if (argument.StartsWith(decoderSwitch))
            task.judge = FullPath(argument.From(TextLength(decoderSwitch) + 1));
        else if (argument.StartsWith(onlySwitch))
            task.only = argument.From(TextLength(onlySwitch) + 1);
        else if (task.plugin.IsEmpty() && !argument.StartsWith(L"-"))
            task.plugin = FullPath(argument);
        else if (!argument.StartsWith(L"-"))
            task.samples.AddString(FullPath(argument));
        else
            task.plugin.Clear(), i = count; // an unknown option
    }
    if (!task.plugin.IsEmpty())
        return Check(task);
    Output output;
    for (const wchar_t* line : usage)
        output.Line(line);
    return exitNotChecked;
}
