// Mends ID3v2 tags that other programs wrote wrongly. Portable; the bytes come from anywhere.
#pragma once

#include <cstddef>

// TagLib takes two things that others read over for the end of a tag, and all behind them would be lost:
// frames without content, which are taken out here (padding grows by them), and names of ID3v2.2 with a
// blank behind their three letters, which iTunes put into tags of ID3v2.3 and 2.4. These get the names that
// the version has for them, or one that nobody knows. UTF-16 without a mark of its byte order, which TagLib
// leaves out, gets the encoding that needs none.
// `frames` is what follows the tag's header, which must tell neither an extended header nor
// unsynchronisation.
void MendId3v2Frames(unsigned char* frames, std::size_t size, int version) noexcept;
