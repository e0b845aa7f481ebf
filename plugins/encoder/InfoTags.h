// Tags by the four-letter names of RIFF's INFO list, which Wave64 uses, too.
#pragma once

#include "plugins/common/Information.h"

#include <vector>

struct InfoTag {
    const char* id;
    XString text; // several values of one key are joined by "; "
};

// In the order of the list; what has no such name goes to `leftOut`.
[[nodiscard]] std::vector<InfoTag> ReadInfoTags(const XTagList& tags, LeftOutTags& leftOut);
