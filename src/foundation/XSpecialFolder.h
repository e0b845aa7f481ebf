// Where a special folder is looked for when the shell doesn't know it.
#pragma once

#include "foundation/XString.h"

#include <cstdint>

struct FolderDerivation {
    int id;       // CSIDL
    int from;     // CSIDL of the folder that it is derived from
    bool popsOne; // the base loses its last folder first
    const wchar_t* appended;
};

// Null if the id is not derived from another.
[[nodiscard]] const FolderDerivation* FindFolderDerivation(int id) noexcept;
// `base` ends in a backslash; so does the result.
[[nodiscard]] XString DeriveFolder(const FolderDerivation& derivation, const XString& base);
// With a trailing backslash; a lone one becomes the empty text.
[[nodiscard]] XString FinishFolder(const XString& folder);
