// The system's recycle bin. Windows only.
#pragma once

#include "foundation/XString.h"

// Moves one file there without a word to the user; where the user has told the system to keep no deleted
// files, it is gone. False and a reason if the file stays, as it does on drives that have no bin.
[[nodiscard]] bool MoveToRecycleBin(const XString& path, XString& reason);
