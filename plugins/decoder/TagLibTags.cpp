// Tags by TagLib. This file keeps TagLib's headers away from the others.
#include "foundation/XPath.h"
#include "plugins/common/TagKeys.h"
#include "plugins/common/TagText.h"
#include "plugins/decoder/FileMarks.h"
#include "plugins/decoder/Id3Frames.h"
#include "plugins/decoder/TagLibKinds.h"
#include "plugins/decoder/TagLibPictures.h"
#include "plugins/decoder/TagLibRest.h"
#include "plugins/decoder/Tags.h"

#include <string>

#include <taglib/aifffile.h>
#include <taglib/apetag.h>
#include <taglib/asffile.h>
#include <taglib/fileref.h>
#include <taglib/flacfile.h>
#include <taglib/id3v1tag.h>
#include <taglib/id3v2header.h>
#include <taglib/id3v2tag.h>
#include <taglib/infotag.h>
#include <taglib/mp4file.h>
#include <taglib/mpegfile.h>
#include <taglib/popularimeterframe.h>
#include <taglib/tfilestream.h>
#include <taglib/tpropertymap.h>
#include <taglib/wavfile.h>
#include <taglib/xiphcomment.h>

static_assert(sizeof(wchar_t) == 2, "TagLib's texts are copied as UTF-16");

namespace {
constexpr long id3HeadBytes = 10;

// A file for reading whose ID3v2 tag at the start comes mended.
class MendedFile final : public TagLib::FileStream {
public:
    explicit MendedFile(const XString& path) : FileStream(TagLib::FileName(path.Text()), true) {}
    TagLib::ByteVector readBlock(unsigned long length) override {
        const long at = tell();
        TagLib::ByteVector block = FileStream::readBlock(length);
        if (at == 0 && block.size() >= id3HeadBytes && block.startsWith("ID3"))
            version = (block[5] & 0xC0) == 0 ? block[3] : 0; // neither unsynchronised nor extended
        else if (at == id3HeadBytes && version >= 3 && !block.isEmpty())
            MendId3v2Frames(reinterpret_cast<unsigned char*>(block.data()), block.size(), version);
        return block;
    }

private:
    int version = 0; // of the tag, 0 for none that can be mended
};

// Older programs write INFO lists in the system's code page; TagLib alone would find no text there.
class InfoTexts final : public TagLib::RIFF::Info::StringHandler {
public:
    TagLib::String parse(const TagLib::ByteVector& data) const override {
        return FromUtf8(std::string(data.data(), data.size()).c_str()).Text();
    }
};

void ReadInfoTextsOurWay() {
    static const InfoTexts texts;
    static const bool isSet = (TagLib::RIFF::Info::Tag::setStringHandler(&texts), true);
    static_cast<void>(isSet);
}

// What TagLib hands out lives only as long as its own string.
XString ToText(const TagLib::String& text) {
    return XString(text.toCWString());
}

void AddId3Kind(const TagLib::ID3v2::Tag* tag, XString& kinds) {
    if (tag && tag->header())
        AddTagKind(kinds, L"ID3v2." + DecimalText(tag->header()->majorVersion()));
}

// Kinds that the marks around the audio don't tell.
void LearnFacts(TagLib::File& file, TagFacts& facts) {
    const auto* comments = dynamic_cast<const TagLib::Ogg::XiphComment*>(file.tag());
    if (auto* flac = dynamic_cast<TagLib::FLAC::File*>(&file))
        comments = flac->hasXiphComment() ? flac->xiphComment() : nullptr;
    if (comments) {
        facts.vendor = ToText(comments->vendorID());
        if (!comments->isEmpty())
            AddTagKind(facts.kinds, L"Vorbis comments");
    } else if (dynamic_cast<const TagLib::RIFF::WAV::File*>(&file)) {
        AddId3Kind(Id3v2TagOf(file), facts.kinds);
        if (InfoTagOf(file))
            AddTagKind(facts.kinds, L"RIFF INFO");
    } else if (dynamic_cast<const TagLib::RIFF::AIFF::File*>(&file)) {
        AddId3Kind(Id3v2TagOf(file), facts.kinds);
    } else if (const auto* mp4 = dynamic_cast<const TagLib::MP4::File*>(&file)) {
        if (mp4->hasMP4Tag())
            AddTagKind(facts.kinds, L"MP4");
    } else if (dynamic_cast<const TagLib::ASF::File*>(&file) && !file.tag()->isEmpty()) {
        AddTagKind(facts.kinds, L"ASF");
    }
}

void AddProperties(const TagLib::PropertyMap& map, XTagList& tags, TagFacts& facts) {
    for (const auto& [key, values] : map)
        for (const TagLib::String& value : values)
            TakeTag(ToText(key), ToText(value), tags, facts);
}

// What a further tag tells beyond the first, from which alone TagLib takes its properties.
void AddMissing(const TagLib::Tag* further, XTagList& tags, TagFacts& facts) {
    if (!further)
        return;
    XTagList list;
    AddProperties(further->properties(), list, facts);
    JoinTotals(list);
    tags.Merge(list);
}

// Of an INFO list TagLib's properties are a few; chunks of unknown names keep those.
void AddInfo(const TagLib::RIFF::Info::Tag* info, XTagList& tags, TagFacts& facts) {
    if (!info)
        return;
    XTagList list;
    for (const auto& [id, value] : info->fieldListMap()) {
        const std::string chunk(id.data(), id.size());
        const TagName* known = FindInfoName(chunk == "ITRK" ? "IPRT" : chunk.c_str());
        if (chunk != "ISFT") // the program that wrote the file
            TakeTag(known ? XString(known->key) : XString(chunk.c_str()), ToText(value), list, facts);
    }
    tags.Merge(list);
}

// What only this kind of tag knows how to tell; players' own notes are nobody's loss.
void NameLeftOut(const TagLib::ID3v2::Tag* tag, TagFacts& facts) {
    if (!tag)
        return;
    bool isRated = false;
    for (const TagLib::ID3v2::Frame* frame : tag->frameList("POPM")) {
        const auto* opinion = dynamic_cast<const TagLib::ID3v2::PopularimeterFrame*>(frame);
        isRated = isRated || (opinion && opinion->rating() > 0);
    }
    if (isRated)
        AddLeftOut(facts, L"rating");
    if (!tag->frameList("SYLT").isEmpty())
        AddLeftOut(facts, L"timed lyrics");
}

bool AddAll(const XString& path, XTagList& tags, XTagList& pictures, TagFacts& facts) {
    ReadInfoTextsOurWay();
    const XString prefixed = LongPath(path, longFileLimit);
    MendedFile stream(prefixed);
    const TagLib::FileRef file(&stream, false);
    if (file.isNull() || !file.file() || !file.file()->isValid())
        return false;
    LearnFacts(*file.file(), facts);
    ListTagLibPictures(*file.file(), pictures);
    const TagLib::PropertyMap map = file.file()->properties();
    AddProperties(map, tags, facts);
    AddInfo(InfoTagOf(*file.file()), tags, facts);
    if (dynamic_cast<TagLib::MPEG::File*>(file.file()))
        AddMissing(ApeTagOf(*file.file()), tags, facts);
    if (dynamic_cast<TagLib::FLAC::File*>(file.file()))
        AddMissing(Id3v2TagOf(*file.file()), tags, facts);
    AddMissing(Id3v1TagOf(*file.file()), tags, facts);
    NameLeftOut(Id3v2TagOf(*file.file()), facts);
    AddRestOfTags(*file.file(), map.unsupportedData(), tags, facts);
    return tags.Count() > 0;
}
} // namespace

// A damaged tag costs the tags, not the audio.
bool AddTagLibTags(const XString& path, XTagList& tags, XTagList& pictures, TagFacts& facts) {
    try {
        return AddAll(path, tags, pictures, facts);
    } catch (...) {
        tags.Clear();
        pictures.Clear();
        facts.unread = {};
        return false;
    }
}
