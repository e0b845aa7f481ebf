// The settings store: forgiving reads and writes of the registry. Nothing is cached; a missing value
// is 0 or the empty text everywhere, and a write that fails is lost without a word.
#pragma once

#include "foundation/XArray.h"
#include "foundation/XHandles.h"
#include "host/SettingNames.h"

#undef RegDeleteTree // a macro of the registry's own header

// The program-wide default root and path: HKEY_CURRENT_USER and Software\Vantrel\Zephtone until told
// otherwise. To be set before any thread starts.
void SetSettingsRoot(HKEY root, const wchar_t* path);
// The default path followed by `subpath`, which brings its own backslash.
[[nodiscard]] XString SettingsPath(const wchar_t* subpath = nullptr);

// In all that follows a null root and a null subkey mean the program-wide ones; a subkey replaces the
// default path and does not extend it.

// Creates the key if it is not there, for reading too. Null in `out` on failure and for an empty path.
void RegOpen(XRegistryKey& out, REGSAM access, HKEY root = nullptr, const wchar_t* subkey = nullptr);

// Fills `size` bytes; zeroes them if the value is missing, too long or of another type (an expandable
// text passes as a text). Returns, and puts into `failed`, whether that went wrong: true is good.
bool RegReadValue(void* buffer, DWORD size, DWORD type, const wchar_t* name, HKEY root = nullptr,
                  const wchar_t* subkey = nullptr, bool* failed = nullptr);
bool RegWriteValue(const void* data, DWORD size, DWORD type, const wchar_t* name, HKEY root = nullptr,
                   const wchar_t* subkey = nullptr);
[[nodiscard]] DWORD RegReadDword(const wchar_t* name, HKEY root = nullptr, const wchar_t* subkey = nullptr);
bool RegWriteDword(DWORD value, const wchar_t* name, HKEY root = nullptr, const wchar_t* subkey = nullptr);
// Expandable texts come as they stand. `failed` is set for a missing value and one of another type.
[[nodiscard]] XString RegReadString(const wchar_t* name, HKEY root = nullptr, const wchar_t* subkey = nullptr,
                                    bool* failed = nullptr);
bool RegWriteString(const wchar_t* value, const wchar_t* name, HKEY root = nullptr,
                    const wchar_t* subkey = nullptr);
// Replaces the content of `out` by the names in registry order. An empty subkey text lists `root`.
// True if the key opened.
bool RegEnumSubkeys(HKEY root, const wchar_t* subkey, XStringArray& out);
// Deletes the key `name` below `parent` with all that is in it; nothing for a null or empty name.
void RegDeleteTree(HKEY root, const wchar_t* parent, const wchar_t* name);

// Writes what a fresh installation starts with, unless it was ever written before.
void WriteFirstRunDefaults();
