// Folders that users know by a name, such as "Music" or "[Temporary Folder]", and the two ways between
// the name and the path. Forms' thread only.
#pragma once

#include "foundation/XArray.h"

// The table, as equal rows of both arrays in search order. Paths end in a backslash.
void NamedFolders(XStringArray& paths, XStringArray& names);

// The real path of a shown text; also "Data (D:)" to "D:\". A text without a name stays as it is.
[[nodiscard]] XString ResolveFolderName(const XString& text);

// What the forms show for a path: its named folder's name, a drive's volume label, or the path itself.
// `isFile`: the path is that of a file, else it gets its backslash before the comparison.
[[nodiscard]] XString FolderDisplayName(const XString& path, bool isFile);

// ---- What the system knows; NamedFoldersWin.cpp and, natively, values for the tests ---------------

// Of a CSIDL or SpecialFolder value, with a trailing backslash.
[[nodiscard]] XString NamedFolderPath(int folderId);
[[nodiscard]] bool HasNewFolderNames(); // Windows from major version 6
// Of "C:" or "C:\"; empty if it has none. Removable drives A: and B: are not touched.
[[nodiscard]] XString VolumeLabel(const XString& root);
