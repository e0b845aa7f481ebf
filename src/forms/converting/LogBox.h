// The logs of a batch in one plain message box.
#pragma once

#include "engine/Records.h"

#include <windows.h>

// The first entries of both logs and how many more there are.
[[nodiscard]] XString LogBoxText(const XArray<clLogEntry>& errors, const XArray<clLogEntry>& information);
void ShowLogBox(HWND owner, const XArray<clLogEntry>& errors, const XArray<clLogEntry>& information);
