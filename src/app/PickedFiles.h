// The texts that go into the open-file dialog and come out of it. Portable.
#pragma once

#include "host/DecoderFilter.h"

#include <vector>

// Pairs of shown text and patterns, each zero-terminated, and a zero behind the last pair.
[[nodiscard]] std::vector<wchar_t> DialogFilterText(const DecoderFilterList& filters);

// Appends the full paths of what the dialog's buffer holds: one full path, or a folder and names,
// each zero-terminated, and an empty one at the end. A name that is a full path stays as it is.
void ReadPickedFiles(const wchar_t* buffer, XStringArray& paths);
