// Pictures in a file's tags as TagLib finds them: it passes over none for the name of its kind, its
// missing kind or its missing file name, as FFmpeg does.
#pragma once

#include "foundation/XTagList.h"

namespace TagLib {
class File;
}

// Larger pictures are no cover art, and an image's sizes are 32 bits.
inline constexpr int mostPictureBytes = 64 * 1024 * 1024;

// Appends a "picture" record (Plugin.h) for each of a file's first few hundred pictures; what is no image,
// such as a link to one, is passed over.
void ListTagLibPictures(TagLib::File& file, XTagList& pictures);

// Adds those of `further` that `tags` lacks, byte by byte, until it has as many pictures as `further`.
void AddFurtherPictures(const XTagList& further, XTagList& tags);
