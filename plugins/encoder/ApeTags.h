// Tags as items of APEv2, which WavPack files end with: names, values joined by zeros, cover art.
#pragma once

#include "foundation/XTagList.h"
#include "plugins/common/Information.h"

#include <string>
#include <vector>

struct ApeItem {
    std::string name;
    std::string value; // UTF-8, or bytes
    bool isBinary = false;
};

// No two have one name. What has no name there, or exceeds the 16 MB that readers take, goes to `leftOut`.
[[nodiscard]] std::vector<ApeItem> ReadApeTags(const XTagList& tags, LeftOutTags& leftOut);
