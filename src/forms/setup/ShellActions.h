// What the set-up form asks of the shell.
#pragma once

#include "foundation/XString.h"

#include <windows.h>

// A document, a program or an address, in the document's folder. Nothing tells of a failure.
void OpenDocument(const XString& target);
// Shows the folder dialog with `selected` chosen at first, unless it is empty. Empty: cancelled, or a
// place without a path.
[[nodiscard]] XString ChooseFolder(HWND owner, const XString& selected);
[[nodiscard]] XString ChooseFolderFor(const wchar_t* title, HWND owner, const XString& selected);
