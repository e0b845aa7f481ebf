// What the lists of files share: the context menu of their rows and the changes to all rows.
#pragma once

#include "toolkit/XListView.h"
#include "toolkit/XOwnerMenu.h"
#include "toolkit/XWindow.h"

// An icon of this program, 16 by 16 pixels; the second form shows it in the static control `id`, too.
[[nodiscard]] XIcon SmallIcon(int resourceId);
[[nodiscard]] XIcon ShowSmallIcon(const XWindow& form, int id, int resourceId);

// Opens the menu at the point that OnContextMenu was given. Returns the chosen id, 0 for none. The form
// hands its messages to `menu`, which is empty again afterwards. `canRename`: unique names can be chosen.
[[nodiscard]] UINT TrackRowMenu(XOwnerMenu& menu, const XListView& list, HWND form, int x, int y,
                                bool canRename = true);

void CheckAllRows(XListView& list, bool checked);
// " - date time" of now, as the user's regional settings write them, with 24 hours. The signs in it
// that no file name takes are replaced where the path is cleaned.
[[nodiscard]] XString UniqueSuffix();
void AppendToAllRows(XListView& list, const wchar_t* suffix); // to column 0

// For OnMouseWheel of the form: 16 pixels, and at least a row, for each step of 120.
void ScrollRows(const XListView& list, int delta);
