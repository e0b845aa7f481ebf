// Runs the real worker over many files, several at once, each as the engine launches it, and prints what
// came of each. Judging the outputs is left to scripts, with tools that are not ours (farm.sh).
//
//   worker_farm ENCODER FOLDER CUTS FLIPS FILE...
//
// Every FILE goes through as it is, then cut off at CUTS places, then with some bits turned at FLIPS
// places. Copies stand in FOLDER\damaged while their rows are of use, outputs in FOLDER\written. Rows:
// name, exit code or "late", milliseconds, "written" or "nothing", errors, information; tabs between.
#include "engine/Supervision.h"
#include "engine/WorkerLaunch.h"
#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"
#include "foundation/XRandom.h"
#include "host/CodecHandler.h"
#include "host/PluginFolders.h"
#include "host/clFileItem.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr int farmSlots = 3; // one more than cores: a start is mostly waiting
constexpr DWORD usualLimitMs = 20000;
constexpr DWORD pollMs = 5;
constexpr std::uint32_t edgeBytes = 1500; // headers and tables stand at the edges of files
constexpr std::uint64_t burstBytes = 32;

enum class Harm { none, cut, flip };

struct Job {
    XString source; // undamaged
    Harm harm = Harm::none;
    int number = 0;
};

struct Target {
    XString encoder;
    XString extension;
    XString folder; // with backslash
};

struct Place {
    clJobSlot slot;
    XString name;
    XString copy; // empty: the source itself was converted
    XKernelHandle process;
    ULONGLONG started = 0;
};

// The same places in every run. Every fourth is near the start, every fourth near the end.
std::uint64_t HarmedAt(std::uint64_t size, const Job& job) {
    XMersenneTwister random(static_cast<std::uint32_t>(job.number) * 2 + (job.harm == Harm::cut));
    const auto edge = static_cast<std::uint32_t>(std::min<std::uint64_t>(size, edgeBytes));
    switch (job.number % 4) {
    case 0:
        return random.Below(edge);
    case 1:
        return size - 1 - random.Below(edge);
    default:
        return random.Below(static_cast<std::uint32_t>(size));
    }
}

// One bit, or with every second number a run of bytes turned over.
void Flip(XBuffer& bytes, const Job& job) {
    const std::uint64_t at = HarmedAt(bytes.size, job);
    if (job.number % 2 == 0) {
        bytes.Bytes()[at] ^= static_cast<unsigned char>(1u << (job.number / 2 % 8));
        return;
    }
    for (std::uint64_t i = at; i < std::min(bytes.size, at + burstBytes); ++i)
        bytes.Bytes()[i] ^= 0xff;
}

bool WriteCopy(const Job& job, const XString& path) {
    XBuffer bytes;
    if (!ReadWholeFile(job.source, bytes) || bytes.size == 0)
        return false;
    std::uint64_t length = bytes.size;
    if (job.harm == Harm::cut)
        length = HarmedAt(bytes.size, job);
    else
        Flip(bytes, job);
    XFile file(path);
    return file.Open(GENERIC_WRITE, CREATE_ALWAYS) && file.Write(bytes.data, static_cast<DWORD>(length));
}

bool Start(Place& place, const Job& job, const Target& target) {
    const XString& folder = target.folder;
    place.name = NameOf(job.source);
    place.copy.Clear();
    clFileItem item;
    item.sourcePath = job.source;
    if (job.harm != Harm::none) {
        XString name;
        name.Format(L"%s~%s%03d%s", NameWithoutExtension(job.source).Text(),
                    job.harm == Harm::cut ? L"cut" : L"flip", job.number, ExtensionOf(job.source).Text());
        place.name = name;
        place.copy = folder + L"damaged\\" + name;
        if (!WriteCopy(job, place.copy))
            return false;
        item.sourcePath = place.copy;
    }
    item.outputPath = folder + L"written\\" + place.name + target.extension;
    place.slot.codecName = target.encoder;
    place.slot.errorText.Clear();
    place.slot.informationText.Clear();
    clLaunchContext context;
    context.executable = PluginRoot() + L"Millworker.exe";
    place.started = GetTickCount64();
    LaunchWorker(place.slot, item, context);
    HANDLE own = nullptr; // the slot closes its handle before anybody could ask for the exit code
    if (!place.slot.running || !DuplicateHandle(GetCurrentProcess(), place.slot.link->process.Get(),
                                                GetCurrentProcess(), &own, 0, FALSE, DUPLICATE_SAME_ACCESS))
        return false;
    place.process.Reset(own);
    return true;
}

void Print(XString text, char end) {
    text.Replace(L"\r\n", L" | ");
    char narrow[8192];
    const int length = WideCharToMultiByte(CP_UTF8, 0, text, -1, narrow, sizeof narrow, nullptr, nullptr);
    std::printf("%s%c", length > 0 ? narrow : "?", end);
}

void Finish(Place& place, bool isLate) {
    DWORD code = 0;
    if (isLate)
        TerminateProcess(place.process.Get(), 99);
    else
        GetExitCodeProcess(place.process.Get(), &code);
    EndWorker(place.slot);
    place.process.Reset();
    const bool isWritten = IsFile(place.slot.output);
    Print(place.name, '\t');
    Print(isLate ? XString(L"late") : UnsignedText(code), '\t');
    Print(UnsignedText(GetTickCount64() - place.started), '\t');
    Print(isWritten ? L"written" : L"nothing", '\t');
    Print(place.slot.errorText, '\t');
    Print(place.slot.informationText, '\n');
    if (!isWritten && !isLate && code <= 1 && !place.copy.IsEmpty())
        DeleteOneFile(place.copy);
}

// TM_FARM_SECONDS is for files of some gigabytes.
DWORD LimitMs() {
    const wchar_t* told = _wgetenv(L"TM_FARM_SECONDS");
    return told ? static_cast<DWORD>(XString(told).ToInt()) * 1000 : usualLimitMs;
}

// Ends what has ended; true if the place can take the next job.
bool Tend(Place& place) {
    static const DWORD limitMs = LimitMs();
    if (!place.process.IsValid())
        return true;
    DrainWorker(place.slot, true);
    const bool hasEnded = WaitForSingleObject(place.process.Get(), 0) == WAIT_OBJECT_0;
    const bool isLate = !hasEnded && GetTickCount64() - place.started > limitMs;
    if (hasEnded || isLate)
        Finish(place, isLate);
    return hasEnded || isLate;
}

bool RunAll(XArray<Job>& jobs, const Target& target) {
    Place places[farmSlots];
    std::int64_t next = 0;
    for (bool isBusy = true; isBusy;) {
        isBusy = next < jobs.Count();
        for (Place& place : places) {
            if (!Tend(place)) {
                isBusy = true;
            } else if (next < jobs.Count() && !Start(place, jobs[next++], target)) {
                Print(place.name + L": not started: " + place.slot.errorText, '\n');
                return false;
            }
        }
        Sleep(pollMs);
    }
    return true;
}

} // namespace

int main(int count, char** arguments) {
    if (count < 6) {
        std::fputs("usage: worker_farm ENCODER FOLDER CUTS FLIPS FILE...\n", stderr);
        return 2;
    }
    if (const wchar_t* root = _wgetenv(L"TM_PROGRAM")) {
        SetPluginRoot(root);
        SetDllDirectoryW(root); // what the plug-ins import stands beside the program
    }
    // Decoders remembered from a program folder elsewhere would be taken before this one's.
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Vantrel\\Zephtone\\DecoderCache64");
    const XString encoder(arguments[1]);
    const Target target{encoder, GetEncoderExtension(encoder), AddBackslash(XString(arguments[2]))};
    const std::int64_t cuts = XString(arguments[3]).ToInt(), flips = XString(arguments[4]).ToInt();
    if (!MakeFolders(target.folder + L"damaged") || !MakeFolders(target.folder + L"written"))
        return 1;
    XArray<Job> jobs;
    for (int i = 5; i < count; ++i) {
        const XString source(arguments[i]);
        jobs.AddPointer(new Job{source, Harm::none, 0});
        for (int number = 0; number < cuts; ++number)
            jobs.AddPointer(new Job{source, Harm::cut, number});
        for (int number = 0; number < flips; ++number)
            jobs.AddPointer(new Job{source, Harm::flip, number});
    }
    return RunAll(jobs, target) ? 0 : 1;
}
