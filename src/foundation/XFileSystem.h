// File system services: existence, folders, deleting, special folders, the program's own place.
#pragma once

#include "foundation/XString.h"

#include <windows.h>

[[nodiscard]] bool PathExists(const XString& path, bool* isFolder = nullptr);
[[nodiscard]] bool IsFile(const XString& path); // exists and is no folder
bool MakeFolders(const XString& path);          // the whole chain; true if all levels exist
bool DeleteOneFile(const XString& path);        // clears a read-only attribute if need be
// Refuses a folder text shorter than 3 characters. True if everything below was removed.
bool DeleteTree(const XString& folder, const wchar_t* pattern = L"*.*", bool recursive = true);
bool ClearReadOnly(const XString& path);

// CSIDL values, or one of the system's own below. With a trailing backslash; "C:\Error\" or the
// fallback when nothing is known.
enum SpecialFolder : int {
    folderProgramFiles = 0x5000,
    folderWindows = 0x5001,
    folderSystem = 0x5002,
    folderTemp = 0x5003,
    folderProgramFiles64 = 0x5004,
};
[[nodiscard]] XString GetSpecialFolder(int id, const wchar_t* fallback = nullptr);
[[nodiscard]] XString TempFolder();    // "C:\Temp\" when the system names none
[[nodiscard]] XString ProgramPath();   // of the running executable
[[nodiscard]] XString ProgramFolder(); // with trailing backslash
// What the shell calls files of this kind. Forms' thread only: it keeps its last answer.
[[nodiscard]] XString FileTypeName(const XString& path);

// Bits of the shell helpers below.
inline constexpr unsigned shellLargeIcon = 1;                         // omits SHGFI_SMALLICON
inline constexpr unsigned shellOpenIcon = 2;                          // adds SHGFI_OPENICON
inline constexpr unsigned shellFromDisk = 4;                          // omits SHGFI_USEFILEATTRIBUTES
[[nodiscard]] int ShellIconIndex(const XString& path, unsigned bits); // -1 if none
[[nodiscard]] HICON ShellIcon(const XString& path, unsigned bits);    // owned by the caller; null
