// Tag lists as encoders want them: names per format, several values of one key, pictures, UTF-8.
#pragma once

#include "foundation/XTagList.h"

#include <string>

// How formats call one of the contract's keys; null where a format has no name for it.
struct TagName {
    const wchar_t* key;
    const char* vorbis; // Vorbis comment field
    const char* id3;    // ID3v2.4 frame
    const char* info;   // RIFF INFO chunk
};
[[nodiscard]] const TagName* FindTagName(const wchar_t* key) noexcept; // null for keys of other sources

[[nodiscard]] const TagName* FindInfoName(const char* info) noexcept; // by the RIFF INFO chunk

// Halves of surrogate pairs and noncharacters, which some formats refuse, become U+FFFD.
[[nodiscard]] XString ValidText(const XString& text);
[[nodiscard]] std::string ToUtf8(const wchar_t* text); // of valid text

// The values of a record, one per element; empty ones are left out.
void SplitValues(const XTagItem& item, XStringArray& out);

// A record of cover art; texts and bytes belong to the record it was read from, apart from the copies.
struct TagPicture {
    int type = 3; // ID3v2 picture type
    std::string mime;
    XString description;
    const unsigned char* bytes = nullptr;
    std::size_t size = 0;
};
// By the first bytes; "image/" if they tell nothing.
[[nodiscard]] const char* ImageMime(const unsigned char* bytes, std::size_t size) noexcept;
[[nodiscard]] bool IsPicture(const XTagItem& item) noexcept;
// False if the record holds no picture. A missing MIME type is told from the bytes.
[[nodiscard]] bool ReadPicture(const XTagItem& item, TagPicture& picture);

// "3/12" into its halves; `total` is empty without one.
void SplitTotal(const XString& text, XString& number, XString& total);
