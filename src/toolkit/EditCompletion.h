// The completion of typed texts in the edit of a real combo box; the choice is PrefixCompletion's.
#pragma once

#include "foundation/XString.h"

#include <windows.h>

// Whether WM_KEYUP of this virtual key may complete: a letter a to z, a digit or a blank.
[[nodiscard]] bool IsCompletingKey(WPARAM key);
// What the user has typed so far; empty if the caret does not stand at the end of the text, for
// then there is nothing to complete.
[[nodiscard]] XString TypedText(HWND edit);
// Shows `typed` followed by the rest of `choice`, with that rest selected.
void SuggestTail(HWND combo, const XString& typed, const XString& choice);
// On WM_KILLFOCUS: deletes the selection unless it begins at the start of the text.
void DropSuggestedTail(HWND edit);
