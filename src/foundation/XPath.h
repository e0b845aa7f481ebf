// Path helpers on text only; they never touch the disk. Paths are plain, with backslashes.
#pragma once

#include "foundation/XString.h"

[[nodiscard]] XString FolderOf(const XString& path);       // with its backslash; no '\': unchanged
[[nodiscard]] XString NameOf(const XString& path);         // behind the last '\'; no '\': unchanged
[[nodiscard]] XString StripExtension(const XString& path); // at the last '.', even of a folder
[[nodiscard]] XString NameWithoutExtension(const XString& path);
[[nodiscard]] XString ExtensionOf(const XString& path); // with its dot; "." when there is none
[[nodiscard]] XString AddBackslash(const XString& path);
[[nodiscard]] XString StripBackslash(const XString& path);
[[nodiscard]] XString Quote(const XString& path);
// First position behind the root: 4 for C:\a, 8 for \\?\C:\a, 1 for a text without a root.
[[nodiscard]] int RootEnd(const XString& path);
// Moves the last component from `path` into `out`; the root stays in `path`.
void PopLastFolder(XString& out, XString& path);
// Prefixes \\?\ when the path has `limit` characters or more and does not start with \\.
[[nodiscard]] XString LongPath(const XString& path, int limit);
// True if a component is a name that Windows keeps for a device (NUL, con.txt, COM1): it opens the
// device, and says that a file of that name exists, in every folder.
[[nodiscard]] bool NamesDevice(const XString& path);

inline constexpr int longFileLimit = 260;   // files opened with CreateFileW
inline constexpr int longFolderLimit = 248; // folders, DeleteFileW, FindFirstFileW
