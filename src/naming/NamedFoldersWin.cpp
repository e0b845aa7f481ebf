// Special folders, system version and volume labels from Windows.
#include "naming/NamedFolders.h"

#include "foundation/XFileSystem.h"
#include "foundation/XPath.h"

#include <windows.h>

XString NamedFolderPath(int folderId) {
    return AddBackslash(GetSpecialFolder(folderId));
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
