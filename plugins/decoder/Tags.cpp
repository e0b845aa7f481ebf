#include "plugins/decoder/Tags.h"

#include "plugins/common/TagKeys.h"
#include "plugins/decoder/AudioStream.h"
#include "plugins/decoder/OpusGainTags.h"
#include "plugins/decoder/TagLibPictures.h"

#include <cstring>
#include <windows.h>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

namespace {

constexpr int fullDictionary = 1024; // where our build of FFmpeg ends adding names

void AddDictionary(const AVDictionary* dictionary, XTagList& tags, TagFacts& facts) {
    const AVDictionaryEntry* entry = nullptr;
    while ((entry = av_dict_get(dictionary, "", entry, AV_DICT_IGNORE_SUFFIX)))
        if (lstrcmpiA(entry->key, "language") != 0) // the container's guess about its stream
            TakeTag(FromUtf8(entry->key), FromUtf8(entry->value), tags, facts);
    if (av_dict_count(dictionary) >= fullDictionary)
        facts.unread.AddUnnamed();
}

// Texts of older programs that are no UTF-8, for which TagLib gives nothing.
void AddForeignTexts(const AVDictionary* dictionary, XTagList& tags, TagFacts& facts) {
    XTagList list;
    const AVDictionaryEntry* entry = nullptr;
    while ((entry = av_dict_get(dictionary, "", entry, AV_DICT_IGNORE_SUFFIX)))
        if (MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, entry->value, -1, nullptr, 0) == 0)
            TakeTag(FromUtf8(entry->key), FromUtf8(entry->value), list, facts);
    tags.Merge(list);
}

// What the chunk of broadcast waves, which TagLib doesn't read, tells beyond other tags.
void AddBroadcastChunk(const AVFormatContext& container, XTagList& tags, TagFacts& facts) {
    static constexpr const char* names[] = {"comment",        "date", "originator_reference",
                                            "time_reference", "umid", "coding_history"};
    if (std::strcmp(container.iformat->name, "wav") != 0)
        return;
    XTagList list;
    for (const char* name : names)
        if (const AVDictionaryEntry* entry = av_dict_get(container.metadata, name, nullptr, 0))
            TakeTag(FromUtf8(name), FromUtf8(entry->value), list, facts);
    tags.Merge(list);
}

// Names of the picture types of ID3v2, as FFmpeg writes them into a picture stream's comment.
int PictureType(const char* name) {
    static constexpr const char* names[] = {
        "Other",
        "32x32 pixels 'file icon' (PNG only)",
        "Other file icon",
        "Cover (front)",
        "Cover (back)",
        "Leaflet page",
        "Media (e.g. label side of CD)",
        "Lead artist/lead performer/soloist",
        "Artist/performer",
        "Conductor",
        "Band/Orchestra",
        "Composer",
        "Lyricist/text writer",
        "Recording Location",
        "During recording",
        "During performance",
        "Movie/video screen capture",
        "A bright coloured fish",
        "Illustration",
        "Band/artist logotype",
        "Publisher/Studio logotype",
    };
    for (int i = 0; name && i < static_cast<int>(sizeof names / sizeof names[0]); ++i)
        if (lstrcmpiA(name, names[i]) == 0)
            return i;
    return 3; // sources that don't say mean the front
}

const wchar_t* MimeType(AVCodecID id) {
    switch (id) {
    case AV_CODEC_ID_MJPEG:
        return L"image/jpeg";
    case AV_CODEC_ID_PNG:
        return L"image/png";
    case AV_CODEC_ID_GIF:
        return L"image/gif";
    case AV_CODEC_ID_BMP:
        return L"image/bmp";
    case AV_CODEC_ID_WEBP:
        return L"image/webp";
    case AV_CODEC_ID_TIFF:
        return L"image/tiff";
    default:
        return nullptr;
    }
}

// Ogg files have theirs in comments, which travel.
bool HasChapters(const XTagList& tags) {
    for (std::int64_t i = 0; i < tags.Count(); ++i)
        if (tags[i].key.Lower().StartsWith(L"chapter"))
            return true;
    return false;
}

bool HasMoreAudio(const AVFormatContext& container) {
    int count = 0;
    for (unsigned i = 0; i < container.nb_streams; ++i)
        count += container.streams[i]->codecpar->codec_type == AVMEDIA_TYPE_AUDIO ? 1 : 0;
    return count > 1;
}

void AddPictures(const AVFormatContext& container, XTagList& tags, TagFacts& facts) {
    for (unsigned i = 0; i < container.nb_streams; ++i) {
        const AVStream& picture = *container.streams[i];
        const wchar_t* mime = MimeType(picture.codecpar->codec_id);
        const AVPacket& bytes = picture.attached_pic;
        if (!(picture.disposition & AV_DISPOSITION_ATTACHED_PIC) || !mime || bytes.size <= 0)
            continue;
        if (bytes.size > mostPictureBytes) {
            facts.unread.Add(L"cover art");
            continue;
        }
        const AVDictionaryEntry* type = av_dict_get(picture.metadata, "comment", nullptr, 0);
        const AVDictionaryEntry* title = av_dict_get(picture.metadata, "title", nullptr, 0);
        XString value = DecimalText(PictureType(type ? type->value : nullptr));
        value.Append(L";");
        value.Append(mime);
        value.Append(L";");
        value.Append(FromUtf8(title ? title->value : nullptr));
        XTagItem* item = tags.Add(L"picture", value);
        if (!item->blob.Set(bytes.data, static_cast<std::uint64_t>(bytes.size)))
            tags.RemoveAt(tags.Count() - 1);
    }
}

} // namespace

void AddLeftOut(TagFacts& facts, const wchar_t* what) {
    if (!facts.leftOut.IsEmpty())
        facts.leftOut += L", ";
    facts.leftOut += what;
}

XString FromUtf8(const char* text) {
    XString result;
    if (!text)
        return result;
    constexpr UINT western = 1252;
    const UINT system = GetACP();
    UINT page = CP_UTF8;
    DWORD flags = MB_ERR_INVALID_CHARS;
    int units = MultiByteToWideChar(page, flags, text, -1, nullptr, 0);
    if (units == 0) {
        page = system == CP_UTF8 ? western : system;
        flags = 0;
        units = MultiByteToWideChar(page, flags, text, -1, nullptr, 0);
    }
    if (units <= 1)
        return result;
    result.SetLength(units - 1);
    MultiByteToWideChar(page, flags, text, -1, result.Buffer(), units);
    return result;
}

void TakeTag(const XString& key, const XString& text, XTagList& tags, TagFacts& facts) {
    if (!AddTag(tags, key, text))
        facts.unread.Add(key.Lower());
}

TagFacts CollectTags(const AudioStream& source, const XString& path, XTagList& tags) {
    TagFacts facts;
    XTagList pictures;
    const AVDictionaryEntry* date = av_dict_get(source.Container()->metadata, "date", nullptr, 0);
    if (!AddTagLibTags(path, tags, pictures, facts)) {
        AddDictionary(source.Container()->metadata, tags, facts);
        AddDictionary(source.Stream()->metadata, tags, facts); // Ogg keeps its comments at the stream
    } else {
        AddForeignTexts(source.Container()->metadata, tags, facts);
        AddForeignTexts(source.Stream()->metadata, tags, facts);
        AddBroadcastChunk(*source.Container(), tags, facts);
        if (date && !tags.Get(L"year").IsEmpty() && FromUtf8(date->value).StartsWith(tags.Get(L"year")) &&
            !std::strchr(date->value, ';'))               // of Vorbis comments: several dates
            AddTag(tags, L"date", FromUtf8(date->value)); // TagLib leaves out the day in old ID3 tags
    }
    if (source.Stream()->codecpar->codec_id == AV_CODEC_ID_OPUS)
        TurnFromOpusGains(tags);
    JoinTotals(tags);
    AddPictures(*source.Container(), tags, facts);
    AddFurtherPictures(pictures, tags);
    if (source.Container()->nb_chapters > 1 && !HasChapters(tags))
        AddLeftOut(facts, L"chapters");
    if (HasMoreAudio(*source.Container()))
        AddLeftOut(facts, L"further audio streams");
    return facts;
}
