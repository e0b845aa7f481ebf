// The mutex guards the spool and the event. The event exists exactly while a collector waits: who finds
// it under the mutex knows that the spool will be read after him.
#include "send/Gathering.h"

#include "foundation/XFile.h"
#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"
#include "host/HandOff.h"
#include "host/ListFile.h"
#include "send/NamedTurn.h"
#include "send/SendText.h"

#include <algorithm>

namespace {

bool AppendToSpool(const XString& path, DWORD disposition, const XString& text) {
    XFile spool(path);
    return spool.Open(GENERIC_WRITE, disposition, false, false) && AppendWhole(spool, text);
}

void WaitForQuiet(HANDLE arrival, const clGatheringPlace& place) {
    const ULONGLONG start = GetTickCount64();
    std::uint32_t quietMs = place.quietMs;
    ULONGLONG last = start; // arrival
    while (last - start < place.longestMs) {
        const auto wait = std::min<ULONGLONG>(quietMs, place.longestMs - (last - start));
        if (WaitForSingleObject(arrival, static_cast<DWORD>(wait)) != WAIT_OBJECT_0)
            return;
        const ULONGLONG now = GetTickCount64();
        quietMs = QuietAfter(quietMs, now - last);
        last = now;
    }
}

// False: the spool is unreadable, and `paths` stays as it is.
bool TakeSpool(const XString& path, XStringArray& paths) {
    XBuffer content;
    XStringArray lines;
    const bool isRead = ReadWholeFile(path, content) && ParseListFile(content.data, content.size, lines);
    DeleteOneFile(path);
    if (!isRead)
        return false;
    paths.Clear();
    PathsOfSpool(lines, paths);
    return true;
}

// FNV-1a, 64 bits.
std::uint64_t HashOf(const XString& text) {
    std::uint64_t hash = 0xcbf29ce484222325u;
    for (int at = 1; at <= text.Count(); ++at)
        hash = (hash ^ text.CharAt(at)) * 0x100000001b3u;
    return hash;
}

} // namespace

std::uint32_t QuietAfter(std::uint32_t quietMs, std::uint64_t delayMs) {
    constexpr std::uint64_t times = 3;
    constexpr std::uint64_t most = 2000;
    return std::max(quietMs, static_cast<std::uint32_t>(std::min(times * delayMs, most)));
}

clGatheringPlace UsualGatheringPlace(const XString& programFolder) {
    clGatheringPlace place;
    XString hash;
    hash.ToHex(HashOf(programFolder.Lower()));
    place.name = L"ZtSend-" + hash;
    DWORD session = 0;
    ProcessIdToSessionId(GetCurrentProcessId(), &session);
    // Not in the temporary folder: two processes may be told of different ones.
    place.spool = FolderOf(HandOffPath()) + place.name + L"-" + DecimalText(session) + L".tmp";
    return place;
}

clGathered GatherPaths(const clGatheringPlace& place, std::uint64_t startTime, XStringArray& paths) {
    const XString eventName = place.name + L"-collects";
    const XString text = SpoolText(startTime, paths);
    XKernelHandle arrival;
    {
        const clNamedTurn turn(place.name, place.busyMs);
        if (!turn.IsTaken())
            return clGathered::alone;
        const XKernelHandle others(OpenEventW(EVENT_MODIFY_STATE, FALSE, eventName));
        if (others.IsValid()) {
            if (!AppendToSpool(place.spool, OPEN_EXISTING, text))
                return clGathered::alone;
            SetEvent(others.Get());
            return clGathered::handedOver;
        }
        MakeFolders(FolderOf(place.spool));
        // A spool that lies there without a collector is left from one that was killed.
        if (!AppendToSpool(place.spool, CREATE_ALWAYS, text))
            return clGathered::alone;
        arrival.Reset(CreateEventW(nullptr, FALSE, FALSE, eventName));
        if (!arrival.IsValid())
            return clGathered::alone;
    }
    WaitForQuiet(arrival.Get(), place);
    // Others hold their turns for a moment only, and their paths wait here.
    const clNamedTurn turn(place.name, INFINITE);
    arrival.Reset();
    return TakeSpool(place.spool, paths) ? clGathered::complete : clGathered::alone;
}
