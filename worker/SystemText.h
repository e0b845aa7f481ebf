// The system's own words for what went wrong. Windows only.
#pragma once

#include "foundation/XString.h"

#include <windows.h>

[[nodiscard]] XString SystemErrorText(DWORD error); // without full stop and line end
// Whether what is left on the drive of this folder explains a failed write.
[[nodiscard]] bool IsDiskFull(const XString& folder);
