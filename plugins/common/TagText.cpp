// The table of tag names and the reading of records. Lists come from sources, so nothing is assumed.
#include "plugins/common/TagText.h"

#include "foundation/XUtf8.h"

#include <cstring>

namespace {

constexpr TagName tagNames[] = {
    {L"title", "TITLE", "TIT2", "INAM"},
    {L"artist", "ARTIST", "TPE1", "IART"},
    {L"album", "ALBUM", "TALB", "IPRD"},
    {L"album artist", "ALBUMARTIST", "TPE2", nullptr},
    {L"composer", "COMPOSER", "TCOM", "IMUS"},
    {L"conductor", "CONDUCTOR", "TPE3", nullptr},
    {L"genre", "GENRE", "TCON", "IGNR"},
    {L"year", "DATE", "TDRC", "ICRD"},
    {L"track", "TRACKNUMBER", "TRCK", "IPRT"},
    {L"disc", "DISCNUMBER", "TPOS", nullptr},
    {L"comment", "COMMENT", "COMM", "ICMT"},
    {L"lyrics", "LYRICS", "USLT", nullptr},
    {L"compilation", "COMPILATION", "TCMP", nullptr},
    {L"bpm", "BPM", "TBPM", nullptr},
    {L"copyright", "COPYRIGHT", "TCOP", "ICOP"},
    {L"publisher", "ORGANIZATION", "TPUB", nullptr},
    {L"isrc", "ISRC", "TSRC", nullptr},
};

constexpr int lastPictureType = 20;

} // namespace

const TagName* FindTagName(const wchar_t* key) noexcept {
    const XString wanted = key;
    for (const TagName& row : tagNames)
        if (wanted.EqualsNoCase(row.key))
            return &row;
    return nullptr;
}

const TagName* FindInfoName(const char* info) noexcept {
    for (const TagName& row : tagNames)
        if (row.info && std::strcmp(row.info, info) == 0)
            return &row;
    return nullptr;
}

XString ValidText(const XString& text) {
    constexpr wchar_t replacement = 0xFFFD;
    XString valid = text;
    for (int i = 1; i <= valid.Count(); ++i) {
        const auto unit = static_cast<std::uint16_t>(valid.CharAt(i));
        const auto next = static_cast<std::uint16_t>(i < valid.Count() ? valid.CharAt(i + 1) : 0);
        if (unit >= 0xD800 && unit < 0xDC00 && next >= 0xDC00 && next < 0xE000)
            ++i;
        else if ((unit >= 0xD800 && unit < 0xE000) || unit >= 0xFFFE)
            valid.SetCharAt(i, replacement);
    }
    return valid;
}

std::string ToUtf8(const wchar_t* text) {
    const XString valid = ValidText(text);
    const int size = WideToUtf8(valid, nullptr, 0); // with the terminator
    std::string result(static_cast<std::size_t>(size), '\0');
    result.resize(static_cast<std::size_t>(WideToUtf8(valid, result.data(), size)));
    if (!result.empty())
        result.pop_back();
    return result;
}

void SplitValues(const XTagItem& item, XStringArray& out) {
    XStringArray pieces;
    Split(pieces, item.value, L"\r");
    for (const XString& piece : pieces) {
        // Comments of several lines keep their line feeds; one that followed the CR goes.
        const XString value = piece.CharAt(1) == L'\n' ? piece.From(2) : piece;
        if (!value.IsEmpty())
            out.AddString(value);
    }
}

const char* ImageMime(const unsigned char* bytes, std::size_t size) noexcept {
    if (size >= 8 && std::memcmp(bytes, "\x89PNG\r\n\x1a\n", 8) == 0)
        return "image/png";
    if (size >= 3 && std::memcmp(bytes, "\xFF\xD8\xFF", 3) == 0)
        return "image/jpeg";
    if (size >= 4 && std::memcmp(bytes, "GIF8", 4) == 0)
        return "image/gif";
    if (size >= 2 && std::memcmp(bytes, "BM", 2) == 0)
        return "image/bmp";
    return "image/";
}

bool IsPicture(const XTagItem& item) noexcept {
    return item.key.EqualsNoCase(L"picture");
}

bool ReadPicture(const XTagItem& item, TagPicture& picture) {
    if (!IsPicture(item) || item.blob.size == 0)
        return false;
    picture.bytes = item.blob.Bytes();
    picture.size = static_cast<std::size_t>(item.blob.size);
    const int first = item.value.FindChar(L';');
    const int second = first > 0 ? item.value.FindChar(L';', first + 1) : 0;
    const std::int64_t type = item.value.ToInt();
    picture.type = type >= 0 && type <= lastPictureType ? static_cast<int>(type) : 0;
    picture.mime.clear();
    picture.description.Clear();
    if (first > 0)
        picture.mime =
            ToUtf8(second > 0 ? item.value.Mid(first + 1, second - 1) : item.value.From(first + 1));
    if (second > 0)
        picture.description = item.value.From(second + 1);
    for (const char c : picture.mime)
        if (c < 0x20 || c > 0x7E) {
            picture.mime.clear();
            break;
        }
    if (picture.mime.empty())
        picture.mime = ImageMime(picture.bytes, picture.size);
    return true;
}

void SplitTotal(const XString& text, XString& number, XString& total) {
    const int slash = text.FindChar(L'/');
    number = slash > 0 ? text.Left(slash - 1) : text;
    if (slash > 0)
        total = text.From(slash + 1);
    else
        total.Clear();
}
