// From the paths of one click to one start of Tonemill. Windows only.
#pragma once

#include "foundation/XArray.h"

enum class clSent {
    sent,
    nothingToConvert, // none of the paths is, or holds, a file that the decoders read
    failed,           // no list file could be written, or Tonemill was not started
};

// The files, and those in the folders, that the installed decoders read, become one list file, and
// Tonemill, which stands in `programFolder`, is started with it. Returns when it has taken the list.
[[nodiscard]] clSent SendToTonemill(const XString& programFolder, const XStringArray& paths);
