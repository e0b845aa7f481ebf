// Foretells which tags a decoder will find in the file that an encoder writes, so that the finished file
// can be compared with it.
#pragma once

#include "plugins/common/Information.h"

// How a format keeps several values of one key.
enum class TagValues {
    separate,
    id3,    // apart from comments and lyrics, which hold one text each
    joined, // one text each
};

// Appends to `written` what of `given` can be foretold for certain. Pictures have no bytes there.
void ForetellTags(const XTagList& given, const LeftOutTags& leftOut, TagValues values, XTagList& written);
