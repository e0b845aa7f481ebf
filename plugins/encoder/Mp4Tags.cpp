#include "plugins/encoder/Mp4Tags.h"

#include "plugins/common/TagText.h"

#include <cstring>

namespace {

constexpr std::size_t mostBytes = std::size_t(1) << 30; // of all items; boxes have 32 bits for a size
constexpr std::size_t boxHeader = 8;
constexpr std::size_t itemOverhead = 256; // headers of an item and its first value

// Type codes of values.
constexpr std::uint32_t typeBinary = 0, typeUtf8 = 1, typeGif = 12, typeJpeg = 13, typePng = 14,
                        typeInteger = 21, typeBmp = 27;

struct ItemName {
    const wchar_t* key;
    const char* name; // four characters: an item of its own; else the name of a free-form item
};

constexpr ItemName itemNames[] = {
    {L"title", "\251nam"},
    {L"artist", "\251ART"},
    {L"album", "\251alb"},
    {L"album artist", "aART"},
    {L"composer", "\251wrt"},
    {L"genre", "\251gen"},
    {L"year", "\251day"},
    {L"comment", "\251cmt"},
    {L"lyrics", "\251lyr"},
    {L"copyright", "cprt"},
    {L"grouping", "\251grp"},
    {L"titlesort", "sonm"},
    {L"artistsort", "soar"},
    {L"albumsort", "soal"},
    {L"albumartistsort", "soaa"},
    {L"composersort", "soco"},
    {L"track", "trkn"},
    {L"disc", "disk"},
    {L"compilation", "cpil"},
    {L"bpm", "tmpo"},
    {L"publisher", "LABEL"},
    {L"musicbrainz_trackid", "MusicBrainz Track Id"},
    {L"musicbrainz_artistid", "MusicBrainz Artist Id"},
    {L"musicbrainz_albumid", "MusicBrainz Album Id"},
    {L"musicbrainz_albumartistid", "MusicBrainz Album Artist Id"},
    {L"musicbrainz_releasegroupid", "MusicBrainz Release Group Id"},
};

void Box(ByteWriter& out, const char* id, const ByteVector& content) {
    out.Big(content.size() + boxHeader, 4);
    out.Id(id);
    out.Raw(content);
}

void Data(ByteWriter& item, std::uint32_t type, const void* bytes, std::size_t size) {
    item.Big(size + boxHeader + 8, 4);
    item.Id("data");
    item.Big(type, 4);
    item.Big(0, 4); // any country and language
    item.Raw(bytes, size);
}

void FreeItem(ByteWriter& out, const std::string& name, const XStringArray& values) {
    constexpr char mean[] = "com.apple.iTunes";
    ByteWriter item;
    item.Big(sizeof mean - 1 + boxHeader + 4, 4);
    item.Id("mean");
    item.Big(0, 4);
    item.Raw(mean, sizeof mean - 1);
    item.Big(name.size() + boxHeader + 4, 4);
    item.Id("name");
    item.Big(0, 4);
    item.Raw(name.data(), name.size());
    for (const XString& value : values) {
        const std::string text = ToUtf8(value);
        Data(item, typeUtf8, text.data(), text.size());
    }
    Box(out, "----", item.out);
}

const char* NameOf(const XString& key) noexcept {
    for (const ItemName& row : itemNames)
        if (key.EqualsNoCase(row.key))
            return row.name;
    return nullptr;
}

// As players look for them: replaygain's in small letters, what others add in capitals.
std::string FreeName(const XString& key) {
    return ToUtf8(key.Lower().StartsWith(L"replaygain_") ? key.Lower() : key.Upper());
}

// Plain digits up to `most`; empty is 0.
bool ReadNumber(const XString& text, std::uint32_t most, std::uint32_t& number) {
    number = 0;
    for (int i = 1; i <= text.Count(); ++i) {
        const wchar_t c = text.CharAt(i);
        if (c < L'0' || c > L'9')
            return false;
        number = number * 10 + static_cast<std::uint32_t>(c - L'0');
        if (number > most)
            return false;
    }
    return true;
}

// False for what the item can't hold: it has room for one number, or two with a total.
bool NumberItem(ByteWriter& out, const char* id, const XStringArray& values) {
    if (values.Count() != 1)
        return false;
    const bool isFlag = std::memcmp(id, "cpil", 4) == 0, isTempo = std::memcmp(id, "tmpo", 4) == 0;
    std::uint32_t number = 0, total = 0;
    ByteWriter value, item;
    if (isFlag || isTempo) {
        if (!ReadNumber(values[0], isFlag ? 1 : 0x7FFF, number))
            return false;
        value.Big(number, isFlag ? 1 : 2);
    } else {
        XString first, second;
        SplitTotal(values[0], first, second);
        if (!ReadNumber(first, 0xFFFF, number) || !ReadNumber(second, 0xFFFF, total))
            return false;
        value.Big(number, 4);
        value.Big(total, 2);
        if (std::memcmp(id, "trkn", 4) == 0)
            value.Big(0, 2);
    }
    Data(item, isFlag || isTempo ? typeInteger : typeBinary, value.out.data(), value.out.size());
    Box(out, id, item.out);
    return true;
}

void TextItem(ByteWriter& out, const XTagItem& record) {
    XStringArray values;
    SplitValues(record, values);
    if (values.Count() == 0)
        return;
    const char* name = NameOf(record.key);
    if (!name || std::strlen(name) != 4) {
        FreeItem(out, name ? std::string(name) : FreeName(record.key), values);
        return;
    }
    for (const char* number : {"trkn", "disk", "cpil", "tmpo"})
        if (std::strcmp(name, number) == 0) {
            if (!NumberItem(out, name, values)) {
                const TagName* known = FindTagName(record.key);
                FreeItem(out, known ? std::string(known->vorbis) : FreeName(record.key), values);
            }
            return;
        }
    ByteWriter item;
    for (const XString& value : values) {
        const std::string text = ToUtf8(value);
        Data(item, typeUtf8, text.data(), text.size());
    }
    Box(out, name, item.out);
}

// By the bytes, since the source's word for them may be wrong; 0 for none that players know.
std::uint32_t PictureType(const TagPicture& picture) noexcept {
    const auto begins = [&](const char* mark, std::size_t size) {
        return picture.size >= size && std::memcmp(picture.bytes, mark, size) == 0;
    };
    if (begins("\xFF\xD8\xFF", 3))
        return typeJpeg;
    if (begins("\x89PNG\r\n\x1A\n", 8))
        return typePng;
    if (begins("GIF8", 4))
        return typeGif;
    return begins("BM", 2) ? typeBmp : 0;
}

// Players show the first picture, so front covers (type 3) lead.
void PictureItem(ByteWriter& out, const XTagList& tags, LeftOutTags& leftOut) {
    ByteWriter item;
    for (const bool isFront : {true, false})
        for (std::int64_t i = 0; i < tags.Count(); ++i) {
            TagPicture picture;
            if (!ReadPicture(tags[i], picture) || (picture.type == 3) != isFront)
                continue;
            const std::uint32_t type = PictureType(picture);
            if (type == 0 || picture.size > mostBytes - itemOverhead - item.out.size())
                leftOut.Add(tags[i]);
            else
                Data(item, type, picture.bytes, picture.size);
        }
    if (!item.out.empty())
        Box(out, "covr", item.out);
}

std::uint64_t BigAt(const ByteVector& bytes, std::size_t at) noexcept {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
        value = value << 8 | bytes[at + i];
    return value;
}

} // namespace

ByteVector BuildMp4Items(const XTagList& tags, LeftOutTags& leftOut) {
    ByteWriter out;
    PictureItem(out, tags, leftOut);
    for (std::int64_t i = 0; i < tags.Count(); ++i) {
        const XTagItem& record = tags[i];
        if (IsPicture(record))
            continue;
        // a unit takes up to 3 bytes, and a value of one unit a box of its own
        const std::size_t bound = static_cast<std::size_t>(record.value.Count()) * 18 +
                                  static_cast<std::size_t>(record.key.Count()) * 3 + itemOverhead;
        if (record.key.IsEmpty() || out.out.size() >= mostBytes || bound > mostBytes - out.out.size())
            leftOut.Add(record);
        else
            TextItem(out, record);
    }
    return out.out;
}

ByteVector BuildMp4FreeItem(const std::string& name, const std::string& value) {
    ByteWriter out;
    XString text;
    text.Assign(value.c_str());
    XStringArray values;
    values.AddString(text);
    FreeItem(out, name, values);
    return out.out;
}

// Twelve hexadecimal numbers, of which readers use the second to the fourth.
std::string GaplessText(std::uint64_t delay, std::uint64_t padding, std::uint64_t frames) {
    const auto number = [](std::uint64_t value, int digits) {
        std::string text(1, ' ');
        for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
            text += "0123456789ABCDEF"[value >> shift & 15];
        return text;
    };
    std::string text = number(0, 8) + number(delay, 8) + number(padding, 8) + number(frames, 16);
    for (int i = 0; i < 8; ++i)
        text += number(0, 8);
    return text;
}

bool PutMp4Items(ByteVector& moov, const ByteVector& items) {
    if (moov.size() < boxHeader || std::memcmp(moov.data() + 4, "moov", 4) != 0)
        return false;
    const std::size_t end = static_cast<std::size_t>(BigAt(moov, 0));
    if (end < boxHeader || end > moov.size())
        return false;
    ByteWriter children;
    for (std::size_t at = boxHeader; at < end;) {
        const std::size_t size = end - at < boxHeader ? 0 : static_cast<std::size_t>(BigAt(moov, at));
        if (size < boxHeader || size > end - at)
            return false;
        if (std::memcmp(moov.data() + at + 4, "udta", 4) != 0)
            children.Raw(moov.data() + at, size);
        at += size;
    }
    ByteWriter meta, udta, out;
    meta.Big(0, 4);
    meta.Big(33, 4);
    meta.Id("hdlr");
    meta.Big(0, 8);
    meta.Id("mdir");
    meta.Id("appl");
    meta.Big(0, 8);
    meta.Big(0, 1);
    Box(meta, "ilst", items);
    Box(udta, "meta", meta.out);
    if (children.out.size() + udta.out.size() > 0xFFFFFFFF - 2 * boxHeader)
        return false;
    Box(children, "udta", udta.out);
    Box(out, "moov", children.out);
    out.Raw(moov.data() + end, moov.size() - end);
    moov = std::move(out.out);
    return true;
}
