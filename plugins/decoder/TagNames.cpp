// How sources spell the keys of tags, and the names under which they travel.
#include "plugins/decoder/Tags.h"

namespace {

struct KeyName {
    const wchar_t* spelling; // as sources write it, upper case
    const wchar_t* key;      // as it travels
};

constexpr KeyName keyNames[] = {
    {L"ALBUMARTIST", L"album artist"},
    {L"ALBUM_ARTIST", L"album artist"},
    {L"ALBUM ARTIST", L"album artist"},
    {L"TRACKNUMBER", L"track"},
    {L"DISCNUMBER", L"disc"},
    {L"DATE", L"year"},
    {L"YEAR", L"year"},
    {L"DESCRIPTION", L"comment"},
    {L"UNSYNCEDLYRICS", L"lyrics"},
    {L"ORGANIZATION", L"publisher"},
    {L"LABEL", L"publisher"},
};

// Facts about the file that containers keep among their tags; they don't belong into a copy.
constexpr const wchar_t* technical[] = {
    L"ENCODER",           L"ENCODED_BY",    L"MAJOR_BRAND",     L"MINOR_VERSION",
    L"COMPATIBLE_BRANDS", L"CREATION_TIME", L"HANDLER_NAME",    L"VENDOR_ID",
    L"DURATION",          L"ENCODING",      L"ENCODERSETTINGS", L"LANGUAGE",
    L"GAPLESS_PLAYBACK",  L"ITUNSMPB",      L"ITUNNORM",        L"METADATA_BLOCK_PICTURE",
};

bool IsTechnical(const XString& upper) {
    for (const wchar_t* name : technical)
        if (upper.Equals(name))
            return true;
    return false;
}

void Join(XTagList& tags, const wchar_t* key, const wchar_t* totalKey) {
    XTagItem* number = tags.Find(key);
    const XTagItem* total = tags.Find(totalKey);
    if (number && total && !number->value.FindChar(L'/')) {
        number->value.Append(L"/");
        number->value.Append(total->value);
    }
    for (std::int64_t i = tags.Count() - 1; i >= 0; --i)
        if (tags[i].key.EqualsNoCase(totalKey))
            tags.RemoveAt(i);
}

} // namespace

void AddTag(XTagList& tags, const XString& key, const XString& value) {
    const XString upper = key.Upper();
    if (value.IsEmpty() || key.IsEmpty() || IsTechnical(upper))
        return;
    XString name = key.Lower();
    for (const KeyName& row : keyNames)
        if (upper.Equals(row.spelling))
            name = row.key;
    XTagItem* known = tags.Find(name);
    if (!known) {
        tags.Add(name, value);
        return;
    }
    XString all = L"\r" + known->value + L"\r";
    if (all.Find(L"\r" + value + L"\r") == 0) { // two spellings of one key often say the same
        known->value.Append(L"\r");
        known->value.Append(value);
    }
}

void JoinTotals(XTagList& tags) {
    Join(tags, L"track", L"tracktotal");
    Join(tags, L"track", L"totaltracks");
    Join(tags, L"disc", L"disctotal");
    Join(tags, L"disc", L"totaldiscs");
}
