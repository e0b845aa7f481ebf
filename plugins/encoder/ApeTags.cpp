#include "plugins/encoder/ApeTags.h"

#include "plugins/common/TagText.h"

#include <iterator>

namespace {

constexpr std::size_t room = (std::size_t(16) << 20) - 1024; // with the tag's header and footer
constexpr std::size_t itemBytes = 9;                         // of an item besides name and value

struct ApeName {
    const wchar_t* key;
    const char* name;
};
// Names with capitals as they are usual; they are compared without regard to case.
constexpr ApeName apeNames[] = {
    {L"title", "Title"},
    {L"artist", "Artist"},
    {L"album", "Album"},
    {L"album artist", "Album Artist"},
    {L"composer", "Composer"},
    {L"conductor", "Conductor"},
    {L"genre", "Genre"},
    {L"year", "Year"},
    {L"track", "Track"},
    {L"disc", "Disc"},
    {L"comment", "Comment"},
    {L"lyrics", "Lyrics"},
    {L"compilation", "Compilation"},
    {L"bpm", "BPM"},
    {L"copyright", "Copyright"},
    {L"publisher", "Publisher"},
    {L"isrc", "ISRC"},
};
constexpr const wchar_t* forbidden[] = {L"ID3", L"TAG", L"OggS", L"MP+"};

// By the picture types of ID3v2.
constexpr const char* pictureNames[] = {"Other",
                                        "Png Icon",
                                        "Icon",
                                        "Front",
                                        "Back",
                                        "Leaflet",
                                        "Media",
                                        "Lead Artist",
                                        "Artist",
                                        "Conductor",
                                        "Band",
                                        "Composer",
                                        "Lyricist",
                                        "Recording Location",
                                        "During Recording",
                                        "During Performance",
                                        "Video Capture",
                                        "Fish",
                                        "Illustration",
                                        "Band Logotype",
                                        "Publisher Logotype"};
static_assert(std::size(pictureNames) == 21);
// What a second picture of one type becomes: other, illustration, leaflet, media.
constexpr int spareTypes[] = {0, 18, 5, 6};

// 2 to 255 characters of ASCII; empty for a key that can't be a name.
std::string ItemName(const XString& key) {
    for (const ApeName& row : apeNames)
        if (key.EqualsNoCase(row.key))
            return row.name;
    for (const wchar_t* name : forbidden)
        if (key.EqualsNoCase(name))
            return {};
    std::string name;
    for (int i = 1; i <= key.Count(); ++i) {
        if (key.CharAt(i) < 0x20 || key.CharAt(i) > 0x7E)
            return {};
        name += static_cast<char>(key.CharAt(i));
    }
    return name.size() < 2 || name.size() > 255 ? std::string() : name;
}

ApeItem TextItem(const XTagItem& item) {
    ApeItem result{ItemName(item.key), {}};
    XStringArray values;
    SplitValues(item, values);
    for (const XString& value : values) {
        if (!result.value.empty())
            result.value += '\0';
        result.value += ToUtf8(value);
    }
    return result;
}

std::string PictureName(const TagPicture& picture) {
    return std::string("Cover Art (") + pictureNames[picture.type] + ")";
}

// The value starts with a file name, which ends in a zero; its extension says the kind.
ApeItem PictureItem(const TagPicture& picture) {
    ApeItem result{PictureName(picture), {}, true};
    const std::string kind = picture.mime.substr(picture.mime.find('/') + 1);
    result.value = picture.description.IsEmpty() ? "cover" : ToUtf8(picture.description);
    result.value.append(".").append(kind == "jpeg" ? "jpg" : kind);
    result.value += '\0';
    result.value.append(reinterpret_cast<const char*>(picture.bytes), picture.size);
    return result;
}

bool HasName(const std::vector<ApeItem>& items, const std::string& name) {
    XString wanted;
    wanted.Assign(name.c_str());
    for (const ApeItem& item : items) {
        XString other;
        other.Assign(item.name.c_str());
        if (wanted.EqualsNoCase(other))
            return true;
    }
    return false;
}

} // namespace

std::vector<ApeItem> ReadApeTags(const XTagList& tags, LeftOutTags& leftOut) {
    std::vector<ApeItem> items;
    std::size_t used = 0;
    for (std::int64_t i = 0; i < tags.Count(); ++i) {
        TagPicture picture;
        const bool isPicture = IsPicture(tags[i]);
        if (isPicture && !ReadPicture(tags[i], picture))
            continue;
        ApeItem item = isPicture ? PictureItem(picture) : TextItem(tags[i]);
        for (const int type : spareTypes)
            if (isPicture && HasName(items, item.name)) {
                picture.type = type;
                item.name = PictureName(picture);
            }
        if (item.value.empty())
            continue;
        const std::size_t size = itemBytes + item.name.size() + item.value.size();
        if (item.name.empty() || size > room - used || HasName(items, item.name)) {
            leftOut.Add(tags[i]);
            continue;
        }
        used += size;
        items.push_back(std::move(item));
    }
    return items;
}
