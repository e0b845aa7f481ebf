// Explorer's helper: hands what the user selected to Tonemill, and makes or removes the entries in
// Explorer's menus. It shows nothing but why nothing can happen.
#include "foundation/XFileSystem.h"
#include "foundation/XKeyValueList.h"
#include "host/Settings.h"
#include "send/Gathering.h"
#include "send/Registration.h"
#include "send/SendText.h"
#include "send/Sending.h"

namespace {

enum ExitCode : int { exitGood = 0, exitFailed = 1, exitNothingGiven = 2 };

// So does a folder that this process was started in not matter to the one that collects.
XString FullPath(const XString& path) {
    const DWORD units = GetFullPathNameW(path, 0, nullptr, nullptr);
    XString full;
    full.SetLength(static_cast<int>(units));
    const DWORD written = GetFullPathNameW(path, units, full.Buffer(), nullptr);
    if (written == 0 || written >= units)
        return path;
    full.FitLength();
    return full;
}

std::uint64_t Ticks(const FILETIME& time) {
    return std::uint64_t(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

// Ticks of 100 ns.
std::uint64_t StartTime() {
    FILETIME created{}, exited{}, kernel{}, user{};
    if (!GetProcessTimes(GetCurrentProcess(), &created, &exited, &kernel, &user))
        GetSystemTimeAsFileTime(&created);
    return Ticks(created);
}

std::uint64_t MillisecondsSince(std::uint64_t start) {
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    return Ticks(now) > start ? (Ticks(now) - start) / 10000 : 0;
}

void Complain(const wchar_t* text) {
    MessageBoxW(nullptr, text, L"Zephtone Tonemill", MB_OK | MB_ICONINFORMATION | MB_SETFOREGROUND);
}

int SendPaths(const XStringArray& words) {
    XStringArray paths;
    for (const XString& word : words)
        paths.AddString(FullPath(word));
    const std::uint64_t start = StartTime();
    clGatheringPlace place = UsualGatheringPlace(ProgramFolder());
    place.quietMs = QuietAfter(place.quietMs, MillisecondsSince(start));
    if (GatherPaths(place, start, paths) == clGathered::handedOver)
        return exitGood;
    switch (SendToTonemill(ProgramFolder(), paths)) {
    case clSent::sent:
        return exitGood;
    case clSent::nothingToConvert:
        Complain(L"There is no file here that Tonemill can read.");
        break;
    case clSent::failed:
        Complain(L"Tonemill could not be started.");
        break;
    }
    return exitFailed;
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    SetSettingsRoot(HKEY_CURRENT_USER, L"Software\\Vantrel\\Zephtone");
    XStringArray words;
    SplitPaths(CommandLineTail(GetCommandLineW()), words);
    switch (CommandOf(words)) {
    case clSendCommand::nothing:
        return exitNothingGiven;
    case clSendCommand::registerEntries:
        return RegisterEntries(UsualExplorerPlaces()) ? exitGood : exitFailed;
    case clSendCommand::unregisterEntries:
        return UnregisterEntries(UsualExplorerPlaces()) ? exitGood : exitFailed;
    case clSendCommand::sendPaths:
        break;
    }
    return SendPaths(words);
}
