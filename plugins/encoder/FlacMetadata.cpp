// Tags become Vorbis comments; places of channels that FLAC does not imply go along.
#include "plugins/encoder/FlacMetadata.h"

#include "plugins/common/OutputFile.h"
#include "plugins/common/TagText.h"
#include "plugins/encoder/VorbisComments.h"

#include <cstring>
#include <string>

namespace {

constexpr std::uint32_t paddingBytes = 8192;
constexpr std::uint32_t secondsPerSeekPoint = 10;
constexpr std::size_t mostBlockBytes = (std::size_t(1) << 24) - 1;
constexpr std::size_t pictureOverhead = 32; // fixed fields of a picture block
// The seek table stands behind the mark, the stream's own block with its header, and its own header.
constexpr std::uint64_t seekTableOffset = 4 + 4 + FLAC__STREAM_METADATA_STREAMINFO_LENGTH + 4;

// The places that FLAC implies for so many channels (RFC 9639, 9.1.3). Side speakers may stand for
// back ones in 5.0 and 5.1.
bool IsImplied(std::uint32_t mask, int channels) noexcept {
    return mask == 0 || mask == UsualChannelMask(channels) || mask == 0x607 || mask == 0x60F;
}

} // namespace

FLAC__StreamMetadata* FlacMetadata::Add(FLAC__MetadataType type) {
    FLAC__StreamMetadata* block = FLAC__metadata_object_new(type);
    if (block) {
        blocks.emplace_back(block);
        pointers.push_back(block);
    }
    return block;
}

bool FlacMetadata::AddSeekTable(const PcmFormat& format) {
    const std::uint64_t frames = format.ExpectedFrames();
    if (frames == 0)
        return true;
    seekTable = Add(FLAC__METADATA_TYPE_SEEKTABLE);
    if (!seekTable)
        return false;
    std::uint64_t step = std::uint64_t(format.frequency) * secondsPerSeekPoint;
    const std::uint64_t mostPoints = mostBlockBytes / FLAC__STREAM_METADATA_SEEKPOINT_LENGTH;
    step = std::max(step, frames / mostPoints + 1);
    return FLAC__metadata_object_seektable_template_append_spaced_points_by_samples(
               seekTable, static_cast<std::uint32_t>(std::min<std::uint64_t>(step, 0xFFFFFFFF)), frames) &&
           FLAC__metadata_object_seektable_template_sort(seekTable, true);
}

bool FlacMetadata::AddComments(const XTagList& tags, const PcmFormat& format, LeftOutTags& leftOut) {
    FLAC__StreamMetadata* block = Add(FLAC__METADATA_TYPE_VORBIS_COMMENT);
    if (!block)
        return false;
    VorbisComments comments(mostBlockBytes - block->length);
    if (!IsImplied(format.channelMask, format.channels)) {
        XString mask;
        mask.ToHexShort(format.channelMask);
        (void)comments.Add("WAVEFORMATEXTENSIBLE_CHANNEL_MASK", ToUtf8(L"0x" + mask)); // first: there is room
    }
    comments.AddTags(tags, leftOut);
    for (const std::string& field : comments.fields) {
        FLAC__StreamMetadata_VorbisComment_Entry entry;
        entry.length = static_cast<FLAC__uint32>(field.size());
        entry.entry = reinterpret_cast<FLAC__byte*>(const_cast<char*>(field.c_str()));
        if (!FLAC__metadata_object_vorbiscomment_append_comment(block, entry, true))
            return false;
    }
    return true;
}

bool FlacMetadata::AddPicture(const XTagItem& item, LeftOutTags& leftOut) {
    TagPicture picture;
    if (!ReadPicture(item, picture))
        return true;
    std::string description = ToUtf8(picture.description);
    if (pictureOverhead + picture.mime.size() + description.size() + picture.size > mostBlockBytes) {
        leftOut.Add(item);
        return true;
    }
    // Types 1 and 2 (file icons) are refused unless they are small PNGs that stand alone.
    if (picture.type == 1 || picture.type == 2)
        picture.type = 0;
    FLAC__StreamMetadata* block = Add(FLAC__METADATA_TYPE_PICTURE);
    if (!block)
        return false;
    block->data.picture.type = static_cast<FLAC__StreamMetadata_Picture_Type>(picture.type);
    return FLAC__metadata_object_picture_set_mime_type(block, picture.mime.data(), true) &&
           FLAC__metadata_object_picture_set_description(
               block, reinterpret_cast<FLAC__byte*>(description.data()), true) &&
           FLAC__metadata_object_picture_set_data(block, const_cast<FLAC__byte*>(picture.bytes),
                                                  static_cast<FLAC__uint32>(picture.size), true);
}

bool FlacMetadata::Build(const XTagList& tags, const PcmFormat& format, LeftOutTags& leftOut) {
    pointers.clear();
    blocks.clear();
    seekTable = nullptr;
    if (!AddSeekTable(format) || !AddComments(tags, format, leftOut))
        return false;
    for (std::int64_t i = 0; i < tags.Count(); ++i)
        if (IsPicture(tags[i]) && !AddPicture(tags[i], leftOut))
            return false;
    FLAC__StreamMetadata* padding = Add(FLAC__METADATA_TYPE_PADDING);
    if (padding)
        padding->length = paddingBytes;
    return padding != nullptr;
}

bool FlacMetadata::MendSeekTable(OutputFile& file) const {
    static_assert(FLAC__STREAM_METADATA_SEEKPOINT_LENGTH == 18);
    unsigned char placeholder[FLAC__STREAM_METADATA_SEEKPOINT_LENGTH] = {};
    std::memset(placeholder, 0xFF, 8);
    if (!seekTable)
        return true;
    const FLAC__StreamMetadata_SeekTable& table = seekTable->data.seek_table;
    for (std::uint32_t i = 0; i < table.num_points; ++i) {
        if (table.points[i].frame_samples != 0) // the encoder has filled it
            continue;
        if (!file.Seek(seekTableOffset + std::uint64_t(i) * sizeof placeholder) ||
            !file.Write(placeholder, sizeof placeholder))
            return false;
    }
    return true;
}
