// How sources spell the keys of tags, and the names under which they travel.
#include "plugins/common/TagKeys.h"

#include "plugins/common/TagText.h"

#include <cstring>

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
    {L"IMUS", L"composer"}, // of an INFO list, as FFmpeg leaves it
    // Of one key with two names readers give the same for both, by the kind of the tag.
    {L"MIXARTIST", L"remixer"},
    {L"MUSICBRAINZ_ALBUMSTATUS", L"releasestatus"},
    {L"MUSICBRAINZ_ALBUMTYPE", L"releasetype"},
    {L"MUSICBRAINZ ALBUM RELEASE COUNTRY", L"releasecountry"},
    {L"MUSICBRAINZ ALBUM STATUS", L"releasestatus"},
    {L"MUSICBRAINZ ALBUM TYPE", L"releasetype"},
    {L"MUSICBRAINZ ALBUM ID", L"musicbrainz_albumid"},
    {L"MUSICBRAINZ ARTIST ID", L"musicbrainz_artistid"},
    {L"MUSICBRAINZ ALBUM ARTIST ID", L"musicbrainz_albumartistid"},
    {L"MUSICBRAINZ RELEASE GROUP ID", L"musicbrainz_releasegroupid"},
    {L"MUSICBRAINZ RELEASE TRACK ID", L"musicbrainz_releasetrackid"},
    {L"MUSICBRAINZ TRACK ID", L"musicbrainz_trackid"},
    {L"MUSICBRAINZ WORK ID", L"musicbrainz_workid"},
    {L"ACOUSTID ID", L"acoustid_id"},
    {L"ACOUSTID FINGERPRINT", L"acoustid_fingerprint"},
    {L"MUSICIP PUID", L"musicip_puid"},
};

// Facts about the file that containers keep among their tags; they don't belong into a copy.
constexpr const wchar_t* technical[] = {
    L"ENCODER",
    L"ENCODED_BY",
    L"MAJOR_BRAND",
    L"MINOR_VERSION",
    L"COMPATIBLE_BRANDS",
    L"CREATION_TIME",
    L"HANDLER_NAME",
    L"VENDOR_ID",
    L"DURATION",
    L"ENCODING",
    L"ENCODERSETTINGS",
    L"ENCODER_OPTIONS",
    L"ENCODEDBY",
    L"GAPLESS_PLAYBACK",
    L"ITUNSMPB",
    L"ITUNNORM",
    L"METADATA_BLOCK_PICTURE",
    L"GAPLESSPLAYBACK",
    L"LENGTH",
    L"FILETYPE",
    L"ITUNPGAP",
    L"WAVEFORMATEXTENSIBLE_CHANNEL_MASK",
};

// What damaged or hostile sources bring beyond it is left out: each value is compared to all others.
constexpr int mostJoinedUnits = 1 << 16;

// iTunes keeps some of these in ID3 comments that have the name as their description.
bool IsTechnical(const XString& upper) {
    const XString bare = upper.StartsWith(L"COMMENT:ITUN") ? upper.From(9) : upper;
    for (const wchar_t* name : technical)
        if (bare.Equals(name))
            return true;
    return false;
}

XString TravelName(const XString& key) {
    const XString upper = key.Upper();
    for (const KeyName& row : keyNames)
        if (upper.Equals(row.spelling))
            return row.key;
    // ID3 lyrics bring their description or language along.
    if (upper.StartsWith(L"LYRICS:") || upper.StartsWith(L"LYRICS-"))
        return L"lyrics";
    return key.Lower();
}

// CR stands between values alone. What is no text comes back in other ways from each kind of tag.
XString CleanValue(const XString& text) {
    int first = 1;
    while (text.CharAt(first) == 0xFEFF && first <= text.Count()) // a byte-order mark
        ++first;
    XString value = ValidText(text.From(first));
    value.Replace(L"\r\n", L"\n");
    value.Replace(L"\r", L"\n");
    return value;
}

// Without a copy: damaged sources bring thousands of values.
bool HasValue(const XString& joined, const XString& value) {
    for (int at = 1; at <= joined.Count();) {
        int end = joined.FindChar(L'\r', at);
        if (end == 0)
            end = joined.Count() + 1;
        const auto units = static_cast<std::size_t>(end - at);
        if (end - at == value.Count() &&
            std::memcmp(joined.Text() + at - 1, value.Text(), units * sizeof(wchar_t)) == 0)
            return true;
        at = end + 1;
    }
    return false;
}

// The first total is the first number's, and so on; one total alone is that of all.
XString JoinPairs(const XString& numbers, const XString& totals) {
    XStringArray left, right;
    Split(left, numbers, L"\r");
    Split(right, totals, L"\r");
    XString joined;
    for (std::int64_t i = 0; i < left.Count(); ++i) {
        const std::int64_t at = right.Count() == 1 ? 0 : i;
        if (i > 0)
            joined.Extend(L"\r");
        joined.Extend(left[i]);
        if (at < right.Count() && !left[i].FindChar(L'/'))
            joined.Extend(L"/" + right[at]);
    }
    return joined;
}

void Join(XTagList& tags, const wchar_t* key, const wchar_t* totalKey) {
    XTagItem* number = tags.Find(key);
    const XTagItem* total = tags.Find(totalKey);
    if (!number)
        return; // a total alone keeps its own name
    if (total)
        number->value = JoinPairs(number->value, total->value);
    for (std::int64_t i = tags.Count() - 1; i >= 0; --i)
        if (tags[i].key.EqualsNoCase(totalKey))
            tags.RemoveAt(i);
}

} // namespace

bool AddTag(XTagList& tags, const XString& key, const XString& text) {
    const XString value = CleanValue(text);
    if (value.IsEmpty() || key.IsEmpty() || IsTechnical(key.Upper()))
        return true;
    const XString name = TravelName(ValidText(key));
    XTagItem* known = tags.Find(name);
    if (!known) {
        if (tags.Count() >= mostTagNames)
            return false;
        tags.Add(name, value);
        return true;
    }
    // DATE and YEAR side by side are one date, told more and less exactly.
    if (name == L"year" && value.StartsWith(known->value)) {
        known->value = value;
        return true;
    }
    if (name == L"year" && known->value.StartsWith(value))
        return true;
    if (value.Count() >= mostJoinedUnits - known->value.Count())
        return false;
    if (!HasValue(known->value, value)) { // two spellings of one key often say the same
        known->value.Extend(L"\r");
        known->value.Extend(value);
    }
    return true;
}

void JoinTotals(XTagList& tags) {
    Join(tags, L"track", L"tracktotal");
    Join(tags, L"track", L"totaltracks");
    Join(tags, L"disc", L"disctotal");
    Join(tags, L"disc", L"totaldiscs");
}
