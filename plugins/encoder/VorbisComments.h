// Tags as Vorbis comments, which FLAC, Ogg Vorbis and Opus share: "NAME=value" in UTF-8, one per value.
#pragma once

#include "foundation/XTagList.h"
#include "plugins/common/Information.h"

#include <string>
#include <vector>

class VorbisComments {
public:
    // `room` in bytes is what the format holds of them.
    explicit VorbisComments(std::size_t room) noexcept : room(room) {}

    // All but cover art. What no comment can name, or what is beyond the room, goes to `leftOut`.
    void AddTags(const XTagList& tags, LeftOutTags& leftOut);
    // Cover art as METADATA_BLOCK_PICTURE: FLAC's picture block (RFC 9639, 8.8) in base64.
    void AddPictures(const XTagList& tags, LeftOutTags& leftOut);
    [[nodiscard]] bool Add(const std::string& name, const std::string& value); // false: no room
    // A number from the fields, equal for equal ones; streams of Ogg are told apart by such.
    [[nodiscard]] int SerialNumber() const noexcept;

    std::vector<std::string> fields;

private:
    void AddItem(const XTagItem& item, LeftOutTags& leftOut);

    std::size_t room;
};
