// The texts of a file's tags that TagLib knows and its list of properties leaves out.
#pragma once

#include "plugins/decoder/Tags.h"

namespace TagLib {
class File;
class StringList;
} // namespace TagLib

// `names` are those that the list of properties tells as unsupported.
void AddRestOfTags(TagLib::File& file, const TagLib::StringList& names, XTagList& tags, TagFacts& facts);
