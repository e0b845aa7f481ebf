#include "plugins/common/WrittenTags.h"

#include "plugins/common/TagKeys.h"
#include "plugins/common/TagText.h"

namespace {

constexpr int longDescription = 200;
constexpr std::int64_t ownNames = 16; // that a format may add to those of the source

// Decoders leave out pictures of kinds that they don't know, which may be all but these two.
bool IsSurelyRead(const TagPicture& picture) {
    const std::string kind = ImageMime(picture.bytes, picture.size);
    const bool isNamed = picture.mime == kind || (kind == "image/jpeg" && picture.mime == "image/jpg");
    return isNamed && (kind == "image/jpeg" || kind == "image/png") &&
           picture.description.Count() <= longDescription;
}

bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

bool IsForetold(const XTagItem& item, TagValues values) {
    // Opus counts gains in a unit of its own, and a decoder gives them in the usual one.
    if (item.key.StartsWith(L"r128_") || item.key.StartsWith(L"R128_"))
        return false;
    // Readers take numbers in ID3 genres for names of a list.
    return values != TagValues::id3 || !item.key.EqualsNoCase(L"genre") ||
           (!item.value.FindChar(L'(') && !IsDigit(item.value.CharAt(1)) && !item.value.FindChar(L'\r'));
}

// Where numbers and totals stand apart, "5" and "5/12" come back as one.
bool HasNumberTwice(const XStringArray& texts) {
    XStringArray numbers;
    for (const XString& text : texts) {
        XString number, total;
        SplitTotal(text, number, total);
        if (numbers.Contains(number, false))
            return true;
        numbers.AddString(number);
    }
    return false;
}

void AddTexts(const XTagItem& item, TagValues values, XTagList& written) {
    const bool isOneText =
        values == TagValues::joined ||
        (values == TagValues::id3 && (item.key.EqualsNoCase(L"comment") || item.key.EqualsNoCase(L"lyrics")));
    const bool isNumber = item.key.EqualsNoCase(L"track") || item.key.EqualsNoCase(L"disc");
    XStringArray texts;
    SplitValues(item, texts);
    if (isNumber && HasNumberTwice(texts))
        return;
    for (const XString& text : texts) {
        if (isNumber && !IsDigit(text.CharAt(1))) // some formats have a total alone under another name
            continue;
        AddTag(written, item.key, text);
        if (isOneText)
            return;
    }
}

} // namespace

void ForetellTags(const XTagList& given, const LeftOutTags& leftOut, TagValues values, XTagList& written) {
    if (given.Count() + ownNames > mostTagNames)
        return; // a decoder reads no more, and which ones is not for certain
    std::int64_t pictures = -leftOut.Pictures();
    bool canCount = true;
    for (std::int64_t i = 0; i < given.Count(); ++i) {
        TagPicture picture;
        if (ReadPicture(given[i], picture)) {
            ++pictures;
            canCount = canCount && IsSurelyRead(picture);
        } else if (!IsPicture(given[i]) && !leftOut.Has(given[i]) && IsForetold(given[i], values)) {
            AddTexts(given[i], values, written);
        }
    }
    JoinTotals(written);
    for (; canCount && pictures > 0; --pictures)
        written.Add(L"picture", L"");
}
