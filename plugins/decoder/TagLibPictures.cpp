#include "plugins/decoder/TagLibPictures.h"

#include "plugins/common/TagText.h"
#include "plugins/decoder/TagLibKinds.h"

#include <cstring>

#include <taglib/apetag.h>
#include <taglib/asffile.h>
#include <taglib/asfpicture.h>
#include <taglib/attachedpictureframe.h>
#include <taglib/flacfile.h>
#include <taglib/id3v2tag.h>
#include <taglib/mp4coverart.h>
#include <taglib/mp4file.h>
#include <taglib/xiphcomment.h>

namespace {

constexpr std::int64_t mostPictures = 256; // each is compared with each
constexpr int frontCover = 3;

// The kind comes from the bytes, else from what the source says; empty for what is no image.
XString KindOf(const TagLib::ByteVector& bytes, const XString& stated) {
    XString kind = XString(ImageMime(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()));
    constexpr int prefix = 6; // "image/"
    if (kind.Count() > prefix)
        return kind;
    const XString lower = stated.Lower();
    return lower.StartsWith(L"image/") && lower.Count() > prefix ? lower : XString();
}

void AddPicture(int type, const TagLib::String& stated, const TagLib::String& description,
                const TagLib::ByteVector& bytes, XTagList& pictures) {
    if (bytes.isEmpty() || bytes.size() > mostPictureBytes || pictures.Count() >= mostPictures)
        return;
    const XString kind = KindOf(bytes, XString(stated.toCWString()));
    if (kind.IsEmpty())
        return;
    XTagItem* item =
        pictures.Add(L"picture", DecimalText(type) + L";" + kind + L";" + description.toCWString());
    if (!item->blob.Set(bytes.data(), bytes.size()))
        pictures.RemoveAt(pictures.Count() - 1);
}

void AddFrames(const TagLib::ID3v2::Tag* tag, XTagList& pictures) {
    if (!tag)
        return;
    for (const TagLib::ID3v2::Frame* frame : tag->frameList("APIC"))
        if (const auto* picture = dynamic_cast<const TagLib::ID3v2::AttachedPictureFrame*>(frame))
            AddPicture(picture->type(), picture->mimeType(), picture->description(), picture->picture(),
                       pictures);
}

// A name, a zero and the bytes.
void AddItem(const TagLib::APE::Tag* tag, const char* key, int type, XTagList& pictures) {
    if (!tag || tag->itemListMap().find(key) == tag->itemListMap().end())
        return;
    const TagLib::ByteVector whole = tag->itemListMap()[key].binaryData();
    const int zero = whole.find('\0');
    if (zero >= 0)
        AddPicture(type, TagLib::String(),
                   TagLib::String(whole.mid(0, static_cast<unsigned>(zero)), TagLib::String::UTF8),
                   whole.mid(static_cast<unsigned>(zero) + 1), pictures);
}

void AddItems(const TagLib::APE::Tag* tag, XTagList& pictures) {
    AddItem(tag, "COVER ART (FRONT)", frontCover, pictures);
    AddItem(tag, "COVER ART (BACK)", frontCover + 1, pictures);
}

void AddBlocks(const TagLib::List<TagLib::FLAC::Picture*>& blocks, XTagList& pictures) {
    for (const TagLib::FLAC::Picture* picture : blocks)
        AddPicture(picture->type(), picture->mimeType(), picture->description(), picture->data(), pictures);
}

void AddCovers(const TagLib::MP4::Tag* tag, XTagList& pictures) {
    if (!tag)
        return;
    for (const TagLib::MP4::CoverArt& cover : tag->item("covr").toCoverArtList())
        AddPicture(frontCover, TagLib::String(), TagLib::String(), cover.data(), pictures);
}

void AddAttributes(const TagLib::ASF::Tag* tag, XTagList& pictures) {
    if (!tag)
        return;
    for (const TagLib::ASF::Attribute& attribute : tag->attribute("WM/Picture")) {
        const TagLib::ASF::Picture picture = attribute.toPicture();
        if (picture.isValid())
            AddPicture(picture.type(), picture.mimeType(), picture.description(), picture.picture(),
                       pictures);
    }
}

std::int64_t CountPictures(const XTagList& tags) {
    std::int64_t count = 0;
    for (std::int64_t i = 0; i < tags.Count(); ++i)
        count += IsPicture(tags[i]) ? 1 : 0;
    return count;
}

bool HasPicture(const XTagList& tags, const XBuffer& blob) {
    for (std::int64_t i = 0; i < tags.Count(); ++i)
        if (IsPicture(tags[i]) && tags[i].blob.size == blob.size &&
            std::memcmp(tags[i].blob.data, blob.data, static_cast<std::size_t>(blob.size)) == 0)
            return true;
    return false;
}

} // namespace

void ListTagLibPictures(TagLib::File& file, XTagList& pictures) {
    AddFrames(Id3v2TagOf(file), pictures);
    AddItems(ApeTagOf(file), pictures);
    if (auto* flac = dynamic_cast<TagLib::FLAC::File*>(&file))
        AddBlocks(flac->pictureList(), pictures);
    else if (auto* comments = dynamic_cast<TagLib::Ogg::XiphComment*>(file.tag()))
        AddBlocks(comments->pictureList(), pictures);
    else if (const auto* mp4 = dynamic_cast<const TagLib::MP4::File*>(&file))
        AddCovers(mp4->tag(), pictures);
    else if (const auto* asf = dynamic_cast<const TagLib::ASF::File*>(&file))
        AddAttributes(asf->tag(), pictures);
}

void AddFurtherPictures(const XTagList& further, XTagList& tags) {
    std::int64_t missing = further.Count() - CountPictures(tags);
    for (std::int64_t i = 0; i < further.Count() && missing > 0; ++i) {
        const XTagItem& picture = further[i];
        if (HasPicture(tags, picture.blob))
            continue;
        XTagItem* item = tags.Add(picture.key, picture.value);
        if (!item->blob.Set(picture.blob.data, picture.blob.size))
            tags.RemoveAt(tags.Count() - 1);
        --missing;
    }
}
