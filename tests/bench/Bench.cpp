// Measurements of the program's own work, printed in milliseconds; scripts/bench.sh calls them.
//   bench list N                   a list file of N paths: read, sorted, made unique
//   bench examine N FILE...        N files asked for their format, round robin over FILE
//   bench naming N                 N evaluations and output paths, of a plain, a typical and a heavy template
//   bench form SECONDS             the converting form while 16 workers report 20 times a second
//   bench loop ENCODER OUT FILE... the same workers as a batch's, two at a time, with no supervision
#include "../support/ReportingWorker.h"
#include "BenchForm.h"
#include "engine/WorkerLaunch.h"
#include "engine/WorkerText.h"
#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"
#include "foundation/XRandom.h"
#include "host/CodecHandler.h"
#include "host/PluginFolders.h"
#include "host/ReadAhead.h"
#include "naming/NamingEvaluator.h"
#include "naming/OutputPath.h"

#include "app/StartUp.h"

#include <cstdio>

namespace {

XString Wide(const char* argument) {
    return XString(argument);
}

void Report(const char* what, ULONGLONG startedMs, long long count) {
    std::printf("%s: %lld in %llu ms\n", what, count, GetTickCount64() - startedMs);
}

int BenchList(int count) {
    XBuffer bytes;
    XMersenneTwister random(1);
    XString text;
    for (int i = 0; i < count; ++i) {
        XString line;
        line.Format(L"D:\\Music\\Artist %d\\Album %d\\%d - Title.flac\r\n", random.Below(500),
                    random.Below(20), i);
        text.Extend(line);
    }
    XTempFile file;
    if (!file.MakeNew(L"bnc"))
        return 1;
    XFile out(file);
    if (!out.Open(GENERIC_WRITE, CREATE_ALWAYS) ||
        !out.Write(text.Text(), static_cast<DWORD>(text.Count()) * sizeof(wchar_t)))
        return 1;
    out.Close();
    clFileList files;
    const ULONGLONG started = GetTickCount64();
    TakeListFile(file, files);
    Report("list", started, files.Count());
    return 0;
}

int BenchExamine(int count, char** sources, int sourceCount) {
    clFileList files;
    for (int i = 0; i < count; ++i)
        files.Append()->sourcePath = Wide(sources[i % sourceCount]);
    clReadAhead order{&files};
    XEvent quit;
    quit.Create();
    const ULONGLONG started = GetTickCount64();
    ProbeSourceFiles(&quit, &order);
    long long read = 0;
    for (const clFileItem& item : files)
        read += item.format.frequency != 0;
    Report("examine", started, read);
    return 0;
}

constexpr const wchar_t* namingTemplates[] = {
    L"Track",
    L"[album artist]\\[album]\\[track] - [title]",
    L"[IFVALUE]album artist,[album artist],[artist][]\\[IFMULTI][album] (Disc [disc])[][IF!MULTI][album][]\\"
    L"[SETLEN]3,48,0,[track][] - [MAXLENGTH]60,[TRIM][title][][][IFEQUALS]genre,Live, (live)[]",
};

void FillTags(clFileItem& item, int number) {
    XTagList tags;
    for (const wchar_t* key : {L"artist", L"album artist", L"album", L"genre", L"composer", L"comment"})
        tags.Add(key, L"A value of usual length");
    tags.Add(L"title", L"Title " + DecimalText(number));
    tags.Add(L"track", DecimalText(number % 20 + 1) + L"/20");
    tags.Add(L"disc", L"1/2");
    tags.Add(L"year", L"1999");
    static_cast<void>(tags.Serialize(item.tagImage));
    item.sourcePath = L"D:\\Music\\Artist\\Album\\" + DecimalText(number) + L".flac";
    item.SetStage(stageTags);
}

int BenchNaming(int count) {
    clFileList files;
    for (int i = 0; i < count; ++i)
        FillTags(*files.Append(), i);
    XTagList tags;
    tags.Deserialize(files[0].tagImage.data, static_cast<std::int64_t>(files[0].tagImage.size));
    for (const wchar_t* text : namingTemplates) {
        const XString namingTemplate = text;
        ULONGLONG started = GetTickCount64();
        int units = 0;
        for (int i = 0; i < count; ++i)
            units += EvaluateNaming(namingTemplate, tags, nullptr).Count();
        Report("evaluations", started, units ? count : 0);
        started = GetTickCount64();
        for (clFileItem& item : files) {
            item.outputPath.Clear();
            ComputeOutputPath(item, L"C:\\Out", namingTemplate, L".mp3");
        }
        Report("output paths", started, count);
    }
    return 0;
}

// Waits for the first of two processes; a null one is free at once.
int FreePlace(XKernelHandle (&places)[2]) {
    for (int i = 0; i < 2; ++i)
        if (!places[i].IsValid())
            return i;
    const HANDLE handles[2] = {places[0].Get(), places[1].Get()};
    return static_cast<int>(WaitForMultipleObjects(2, handles, FALSE, INFINITE) - WAIT_OBJECT_0);
}

int BenchLoop(const XString& encoder, const XString& folder, char** sources, int sourceCount) {
    XKernelHandle places[2];
    XTempFile commands[2];
    XEvent events[2][2];
    const XString extension = GetEncoderExtension(encoder);
    const ULONGLONG started = GetTickCount64();
    for (int i = 0; i < sourceCount; ++i) {
        const int place = FreePlace(places);
        clJobSlot slot;
        slot.codecName = encoder;
        slot.source = Wide(sources[i]);
        slot.output = AddBackslash(folder) + NameWithoutExtension(slot.source) + extension;
        clWorkerJob job;
        job.quitEvent = MakeUniqueEvent(events[place][0], L"bench-quit-");
        job.watchdogEvent = MakeUniqueEvent(events[place][1], L"bench-watch-");
        const XString text = CommandFileText(slot, job);
        XFile command;
        if (!commands[place].MakeNew(L"bnc"))
            return 1;
        command.path = commands[place];
        if (!command.Open(GENERIC_WRITE, CREATE_ALWAYS) ||
            !command.Write(text.Text(), static_cast<DWORD>(text.Count()) * sizeof(wchar_t)))
            return 1;
        command.Close();
        XString line = WorkerCommandLine(PluginRoot() + L"Millworker.exe", commands[place]);
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESTDHANDLES; // nobody listens
        PROCESS_INFORMATION process{};
        if (!CreateProcessW(nullptr, line.Buffer(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr,
                            nullptr, &startup, &process))
            return 1;
        CloseHandle(process.hThread);
        places[place].Reset(process.hProcess);
    }
    for (const XKernelHandle& place : places)
        if (place.IsValid())
            WaitForSingleObject(place.Get(), INFINITE);
    Report("loop", started, sourceCount);
    return 0;
}

} // namespace

int main(int count, char** arguments) {
    const int played = PlayReportingWorker();
    if (played >= 0)
        return played;
    const XString mode = count > 1 ? Wide(arguments[1]) : XString();
    const int number = count > 2 ? static_cast<int>(Wide(arguments[2]).ToInt()) : 0;
    if (const wchar_t* root = _wgetenv(L"TM_PROGRAM")) {
        SetPluginRoot(root);
        SetDllDirectoryW(root); // what the plug-ins import stands beside the program
    }
    if (mode == L"list" && number > 0)
        return BenchList(number);
    if (mode == L"naming" && number > 0)
        return BenchNaming(number);
    if (mode == L"examine" && count > 3 && number > 0)
        return BenchExamine(number, arguments + 3, count - 3);
    if (mode == L"form" && number > 0)
        return BenchForm(number);
    if (mode == L"loop" && count > 4)
        return BenchLoop(Wide(arguments[2]), Wide(arguments[3]), arguments + 4, count - 4);
    std::fputs(
        "usage: bench list N | examine N FILE... | naming N | form SECONDS | loop ENCODER OUT FILE...\n",
        stderr);
    return 2;
}
