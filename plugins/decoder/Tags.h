// Tags, cover art and properties of an open source as the contract's two lists.
#pragma once

#include "foundation/XTagList.h"

class AudioStream;

// Fills `tags` and `properties`. Tags come from TagLib where it reads the format, since it keeps
// several values of one key apart, else from the container; pictures always from the container.
void CollectTags(const AudioStream& source, const XString& path, XTagList& tags);
void CollectProperties(const AudioStream& source, XTagList& properties);

// Adds what TagLib finds; false if it doesn't read this file, fails on it or finds nothing.
[[nodiscard]] bool AddTagLibTags(const XString& path, XTagList& tags);
