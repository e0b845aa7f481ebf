// Names of fields, splitting of totals, and pictures as text.
#include "plugins/encoder/VorbisComments.h"

#include "plugins/common/ByteWriter.h"
#include "plugins/common/TagText.h"

namespace {

constexpr std::size_t lengthBytes = 4;                               // each field is preceded by its length
constexpr std::size_t mostPictureBytes = (std::size_t(1) << 24) - 1; // of FLAC's block

// Field names are ASCII from blank to '}' without '='; empty for a key that has none left. Readers take
// COVERART for a picture, or for nothing.
std::string FieldName(const XString& key) {
    if (const TagName* known = FindTagName(key))
        return known->vorbis;
    std::string name;
    for (int i = 1; i <= key.Count(); ++i) {
        const wchar_t c = key.CharAt(i);
        if (c < 0x20 || c > 0x7D || c == L'=')
            return {};
        name += static_cast<char>(c >= L'a' && c <= L'z' ? c - 32 : c);
    }
    return name == "COVERART" ? std::string() : name;
}

std::string Base64(const ByteVector& bytes) {
    constexpr char digits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::size_t count = bytes.size() - i < 3 ? bytes.size() - i : 3;
        std::uint32_t group = 0;
        for (std::size_t k = 0; k < 3; ++k)
            group = group << 8 | (k < count ? bytes[i + k] : 0u);
        for (std::size_t k = 0; k < 4; ++k)
            text += k <= count ? digits[group >> (18 - 6 * k) & 63] : '=';
    }
    return text;
}

// Width, height, depth and colours stay 0: a reader finds them in the picture.
ByteVector PictureBlock(const TagPicture& picture) {
    const std::string description = ToUtf8(picture.description);
    ByteWriter block;
    block.Big(static_cast<std::uint64_t>(picture.type), 4);
    block.Big(picture.mime.size(), 4);
    block.Raw(picture.mime.data(), picture.mime.size());
    block.Big(description.size(), 4);
    block.Raw(description.data(), description.size());
    block.Big(0, 8);
    block.Big(0, 8);
    block.Big(picture.size, 4);
    block.Raw(picture.bytes, picture.size);
    return std::move(block.out);
}

} // namespace

bool VorbisComments::Add(const std::string& name, const std::string& value) {
    const std::size_t needed = lengthBytes + name.size() + 1 + value.size();
    if (needed > room)
        return false;
    room -= needed;
    fields.push_back(name + "=" + value);
    return true;
}

void VorbisComments::AddItem(const XTagItem& item, LeftOutTags& leftOut) {
    const std::string name = FieldName(item.key);
    bool isWhole = !name.empty();
    const bool isDisc = name == "DISCNUMBER";
    const bool hasTotal = name == "TRACKNUMBER" || isDisc;
    XStringArray values;
    if (isWhole)
        SplitValues(item, values);
    for (const XString& value : values) {
        XString number = value, total;
        if (hasTotal)
            SplitTotal(value, number, total);
        isWhole = (number.IsEmpty() || Add(name, ToUtf8(number))) && isWhole;
        isWhole = (total.IsEmpty() || Add(isDisc ? "DISCTOTAL" : "TRACKTOTAL", ToUtf8(total))) && isWhole;
    }
    if (!isWhole)
        leftOut.Add(item);
}

void VorbisComments::AddTags(const XTagList& tags, LeftOutTags& leftOut) {
    for (std::int64_t i = 0; i < tags.Count(); ++i)
        if (!IsPicture(tags[i]))
            AddItem(tags[i], leftOut);
}

void VorbisComments::AddPictures(const XTagList& tags, LeftOutTags& leftOut) {
    for (std::int64_t i = 0; i < tags.Count(); ++i) {
        TagPicture picture;
        if (!ReadPicture(tags[i], picture))
            continue;
        const ByteVector block = PictureBlock(picture);
        if (block.size() > mostPictureBytes || !Add("METADATA_BLOCK_PICTURE", Base64(block)))
            leftOut.Add(tags[i]);
    }
}

// FNV-1a, 32 bits.
int VorbisComments::SerialNumber() const noexcept {
    std::uint32_t hash = 2166136261u;
    for (const std::string& field : fields)
        for (const char c : field)
            hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
    return static_cast<int>(hash & 0x7FFFFFFF);
}
