// Special folders, system version and volume labels from Windows.
#include "naming/NamedFolders.h"

#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"

#include <windows.h>

namespace {

// The shell may take a millisecond to answer, and a large batch asks for every file in one go.
struct KnownPath {
    int folderId = 0;
    DWORD asked = 0; // tick
    XString path;
};
constexpr DWORD validMs = 2000;

} // namespace

XString NamedFolderPath(int folderId) {
    static XArray<KnownPath> known;
    const DWORD now = GetTickCount();
    KnownPath* entry = nullptr;
    for (KnownPath& candidate : known)
        if (candidate.folderId == folderId)
            entry = &candidate;
    if (entry && now - entry->asked < validMs)
        return entry->path;
    if (!entry)
        entry = known.AddNew();
    entry->folderId = folderId;
    entry->asked = now;
    entry->path = AddBackslash(GetSpecialFolder(folderId));
    return entry->path;
}

bool HasNewFolderNames() {
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof(version);
    return !GetVersionExW(&version) || version.dwMajorVersion >= 6;
}

XString VolumeLabel(const XString& root) {
    const XString drive = AddBackslash(root);
    const wchar_t letter = drive.Upper().CharAt(1);
    // Reading a diskette's label spins the drive or asks for a disk.
    if ((letter == L'A' || letter == L'B') && GetDriveTypeW(drive) == DRIVE_REMOVABLE)
        return {};
    wchar_t label[MAX_PATH + 1] = L"";
    if (!GetVolumeInformationW(drive, label, MAX_PATH + 1, nullptr, nullptr, nullptr, nullptr, 0))
        return {};
    return label;
}
