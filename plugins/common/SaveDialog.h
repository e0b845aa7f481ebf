// The system's dialog for the name of a file to write, as panels open it.
#pragma once

#include "foundation/XString.h"

#include <windows.h>

// `filter` holds pairs of terminated texts and a final 0; `extension` has no dot and is added to names
// without one. True if the user chose a file, whose full path then stands in `path`. No question about
// a file that exists: who writes it replaces it with each batch.
[[nodiscard]] bool AskSavePath(HWND owner, const wchar_t* title, const wchar_t* filter,
                               const wchar_t* extension, XString& path);
