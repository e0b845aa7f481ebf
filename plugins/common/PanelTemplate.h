// Dialog templates in memory, so that a panel can take over the font of the form it stands on.
#pragma once

#include <windows.h>

#include <vector>

// A copy of the DIALOGEX resource of the module with the font of `like` instead of its own; unchanged
// if that window has none. Empty if there is no such resource.
[[nodiscard]] std::vector<unsigned char> PanelTemplate(HMODULE module, int dialogId, HWND like);
