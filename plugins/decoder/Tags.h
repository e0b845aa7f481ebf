// Tags and cover art of an open source as the contract's list.
#pragma once

#include "foundation/XTagList.h"
#include "plugins/decoder/UnreadTags.h"

class AudioStream;

// What reading the tags tells of a file besides them.
struct TagFacts {
    XString kinds;   // of tags that stand inside the file's own structure, "Vorbis comments"
    XString vendor;  // the encoder, as Vorbis comments name it
    XString leftOut; // what the source holds and the contract's list has no place for: "rating, chapters"
    UnreadTags unread;
};

// Tags come from TagLib where it reads the format, since it keeps several values of one key apart, else
// from the container; pictures from the container, and those that it leaves out from TagLib.
TagFacts CollectTags(const AudioStream& source, const XString& path, XTagList& tags);

// Adds what TagLib finds; false if it doesn't read this file, fails on it or finds no texts. Pictures go into
// a list of their own.
[[nodiscard]] bool AddTagLibTags(const XString& path, XTagList& tags, XTagList& pictures, TagFacts& facts);
void AddLeftOut(TagFacts& facts, const wchar_t* what);
// AddTag (TagKeys.h), noting what found no room.
void TakeTag(const XString& key, const XString& text, XTagList& tags, TagFacts& facts);

// What is no UTF-8 is of older programs, and read in the system's code page.
[[nodiscard]] XString FromUtf8(const char* text);
