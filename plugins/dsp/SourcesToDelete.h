// Which sources of a batch may go, as far as its result list tells, and when a length is the right one.
// Portable: of the disk it knows nothing.
#pragma once

#include "contract/Plugin.h"
#include "foundation/XTagList.h"

#include <vector>

struct ConvertedSource {
    XString path;
    std::vector<XString> outputs; // of all its rows
    bool mayGo = true;
    // Otherwise: a row failed, it is an output of the batch, too, or another source has the same output,
    // so that only one of them can be in it.
};

// All sources in the order of their first rows; rows of one source, in whatever case, stand together.
[[nodiscard]] std::vector<ConvertedSource> ReadConvertedSources(const XTagList& results);

// As long as each other: to the frame where both are told so and nothing was lost, else within what
// coding adds. A length that nobody tells is none.
[[nodiscard]] bool IsSameLength(const AudioFormatRecord& source, const AudioFormatRecord& output);
