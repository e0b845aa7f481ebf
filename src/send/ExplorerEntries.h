// The entries in Explorer's menus: which keys they are. Portable; Registration.h writes them.
#pragma once

#include "foundation/XArray.h"

// The name of our verb's key below each `shell`. Whatever stands under it is ours.
inline constexpr wchar_t explorerVerb[] = L"ZtTonemill";
inline constexpr wchar_t explorerText[] = L"Convert with Tonemill";
inline constexpr wchar_t classAssociations[] = L"SystemFileAssociations";
inline constexpr wchar_t classDirectory[] = L"Directory";
inline constexpr wchar_t sendToName[] = L"Tonemill.lnk";

// The classes that get the verb, below Software\Classes: folders, and each extension once, whatever its
// case. Of the extensions only those count that can be a key: a dot and something behind it.
void ClassesWithVerb(const XStringArray& extensions, XStringArray& classes);
// Below Software\Classes, for a class or a chain of keys that leads to one.
[[nodiscard]] XString VerbKey(const wchar_t* className);

// The command of the verb; Explorer starts it once for each file and puts the path in.
[[nodiscard]] XString VerbCommand(const XString& programFolder);
