// Tags and cover art of an open source as the contract's list.
#pragma once

#include "foundation/XTagList.h"

class AudioStream;

// What TagLib tells of a file besides its tags.
struct TagLibFacts {
    XString kinds;  // of tags that stand inside the file's own structure, "Vorbis comments"
    XString vendor; // the encoder, as Vorbis comments name it
};

// Tags come from TagLib where it reads the format, since it keeps several values of one key apart, else
// from the container; pictures always from the container.
TagLibFacts CollectTags(const AudioStream& source, const XString& path, XTagList& tags);

// Adds what TagLib finds; false if it doesn't read this file, fails on it or finds nothing.
[[nodiscard]] bool AddTagLibTags(const XString& path, XTagList& tags, TagLibFacts& facts);

[[nodiscard]] XString FromUtf8(const char* text);
