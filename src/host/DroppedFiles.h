// What the user drops on the set-up form: files, and folders with all that is in them. Windows only.
#pragma once

#include "host/clFileList.h"

// Appends the dropped files and those at any depth of dropped folders, in the order of the walk, if
// their extension is in the list (EnumerateDecoders gives it; with the dot, A-Z folded) and their
// path is not in `files` yet. All others are passed over. Returns how many were added.
// Below one dropped folder each real folder is walked once, however many links lead to it.
std::int64_t AddDroppedFiles(clFileList& files, const XStringArray& dropped, const XStringArray& extensions);
