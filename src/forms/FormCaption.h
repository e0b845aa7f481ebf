// What the forms of the program have in common at first sight.
#pragma once

#include "foundation/XString.h"

#include <windows.h>

// The program's name, and behind it the line that the maker of a branded copy put beside the program.
[[nodiscard]] XString FormCaption();
// An icon of this program; owned by the caller.
[[nodiscard]] HICON LoadProgramIcon(int id, int pixels);
