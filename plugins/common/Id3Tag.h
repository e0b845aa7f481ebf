// Writes ID3v2.4 tags (id3.org, "ID3 tag version 2.4.0"): texts, comments, lyrics, own fields, pictures.
#pragma once

#include "foundation/XTagList.h"
#include "plugins/common/ByteWriter.h"
#include "plugins/common/Information.h"

// The whole tag with `padding` zero bytes behind its frames; empty if the list has nothing to write.
// A frame too large for the format's 28-bit sizes goes to `leftOut`.
[[nodiscard]] ByteVector BuildId3Tag(const XTagList& tags, std::size_t padding, LeftOutTags& leftOut);
