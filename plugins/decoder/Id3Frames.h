// Mends frame names that ID3v2 tags bear wrongly. Portable; the bytes come from anywhere.
#pragma once

#include <cstddef>

// iTunes put names of ID3v2.2, with a blank behind their three letters, into tags of ID3v2.3 and 2.4. TagLib
// takes such a frame for the tag's end, and all behind it would be lost. Gives these frames the names that
// the version has for them, or one that nobody knows. `frames` is what follows the tag's header; tags with
// an extended header or unsynchronisation are none that iTunes wrote.
void MendId3v2Frames(unsigned char* frames, std::size_t size, int version) noexcept;
