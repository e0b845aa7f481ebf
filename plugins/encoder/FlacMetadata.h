// The metadata blocks of a FLAC file: seek table, Vorbis comments, pictures, padding.
#pragma once

#include "foundation/XTagList.h"
#include "plugins/common/Information.h"
#include "plugins/common/PcmFormat.h"

#include <FLAC/metadata.h>

#include <memory>
#include <vector>

class OutputFile;

class FlacMetadata {
public:
    // False if memory ran out. Records that the format can't hold go to `leftOut`.
    [[nodiscard]] bool Build(const XTagList& tags, const PcmFormat& format, LeftOutTags& leftOut);
    // For the encoder, until the next Build.
    [[nodiscard]] FLAC__StreamMetadata** Blocks() noexcept { return pointers.data(); }
    [[nodiscard]] std::uint32_t Count() const noexcept { return static_cast<std::uint32_t>(pointers.size()); }
    // Behind the encoder's end: points whose place never came, because less audio came than was
    // announced, become placeholders.
    [[nodiscard]] bool MendSeekTable(OutputFile& file) const;

private:
    struct DeleteBlock {
        void operator()(FLAC__StreamMetadata* block) const noexcept { FLAC__metadata_object_delete(block); }
    };
    FLAC__StreamMetadata* Add(FLAC__MetadataType type);
    [[nodiscard]] bool AddSeekTable(const PcmFormat& format);
    [[nodiscard]] bool AddComments(const XTagList& tags, const PcmFormat& format, LeftOutTags& leftOut);
    [[nodiscard]] bool AddPicture(const XTagItem& item, LeftOutTags& leftOut);

    std::vector<std::unique_ptr<FLAC__StreamMetadata, DeleteBlock>> blocks;
    std::vector<FLAC__StreamMetadata*> pointers;
    FLAC__StreamMetadata* seekTable = nullptr;
};
