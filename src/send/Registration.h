// Puts Tonemill into Explorer's menus, for this user alone, and takes it out again. Windows only.
#pragma once

#include "foundation/XArray.h"

// Where the entries go; tests have places of their own.
struct clExplorerPlaces {
    XString classes;  // below HKEY_CURRENT_USER
    XString sendTo;   // folder, with its backslash
    XString programs; // the folder of ZtSend.exe and Tonemill.exe, with its backslash
};
[[nodiscard]] clExplorerPlaces UsualExplorerPlaces();

// A verb for folders and for each of the extensions, and the shortcut of "Send to". What stood there
// of ours before goes first, so that no verb of an extension stays that is not read any more. False:
// something could not be written; what could be, stands. Explorer is told. Initialises COM for itself.
[[nodiscard]] bool RegisterEntries(const clExplorerPlaces& places, const XStringArray& extensions);
// The same for what the installed decoders read.
[[nodiscard]] bool RegisterEntries(const clExplorerPlaces& places);
// Removes our verb below every class, and the keys above it that are empty then; what leads to another
// copy of the program stays as long as that copy does. False: something of ours is still there.
[[nodiscard]] bool UnregisterEntries(const clExplorerPlaces& places);
// Whether the entries are those of this program, not of a copy that stands elsewhere.
[[nodiscard]] bool AreEntriesRegistered(const clExplorerPlaces& places);
