// The table of elements, their replacement, and that of the wrappers.
#include "naming/NamingElements.h"

#include "naming/NamingEvaluator.h"

#include <algorithm>
#include <iterator>

namespace {

enum class Part { whole, first, second };

struct NamingElement {
    const wchar_t* element; // lower case
    const wchar_t* key;
    bool isDynamic = false; // needs tags or audio format: HasDynamicItem looks for it
    Part part = Part::whole;
    bool isPadded = false; // one digit gets a zero before it
};
// In the order of replacement: a value can complete a bracket of the template to an element below it.
constexpr NamingElement table[] = {
    {L"[artist]", L"artist", true},
    {L"[album]", L"album", true},
    {L"[album artist]", L"album artist", true},
    {L"[composer]", L"composer", true},
    {L"[conductor]", L"conductor", true},
    {L"[title]", L"title", true},
    {L"[genre]", L"genre", true},
    {L"[year]", L"year", true},
    {L"[track]", L"track", true, Part::first, true},
    {L"[track_total]", L"track", true, Part::second, true},
    {L"[disc]", L"disc", true, Part::first},
    {L"[disc_total]", L"disc", true, Part::second},
    {L"[band]", L"band", true},
    {L"[rating]", L"rating", true},
    {L"[tempo]", L"tempo", true},
    {L"[label]", L"label", true},
    {L"[isrc]", L"isrc", true},
    {L"[upc]", L"upc", true},
    {L"[compilation]", L"compilation", true},
    {L"[mood]", L"mood", true},
    {L"[style]", L"style", true},
    {L"[copyright]", L"copyright", true},
    {L"[subtitle]", L"subtitle", true},
    {L"[unique]", L"unique"},
    {L"[discunique]", L"discunique"},
    {L"[length]", L"length", true},
    {L"[length_mmss]", L"length_mmss", true},
    {L"[length_hhmmss]", L"length_hhmmss", true},
    {L"[encoder]", L"encoder"},
    {L"[encoder+]", L"encoder+"},
    {L"[extension]", L"extension"},
    {L"[cddb_id]", L"cddb_id"},
    {L"[origdrive]", L"origdrive"},
    {L"[origpath]", L"origpath"},
    {L"[origfilename]", L"origfilename"},
    {L"[protected]", L"protected"},
    {L"[id_tag]", L"id_tag", true},
    {L"[audio_quality]", L"audio_quality", true},
    {L"[gapless]", L"gapless", true},
    {L"[date]", L"date"},
    {L"[time]", L"time"},
    {L"[day_of_week]", L"day_of_week"},
    {L"[now_year]", L"now_year"},
    {L"[frequency]", L"frequency", true},
    {L"[channels]", L"channels", true},
    {L"[channels_subone]", L"channels_subone", true},
    {L"[bits_per_sample]", L"bits_per_sample", true},
    {L"[bytes_per_sample]", L"bytes_per_sample", true},
    {L"[bitrate]", L"bitrate", true},
    {L"[k_bitrate]", L"k_bitrate", true},
};
static_assert(std::count_if(std::begin(table), std::end(table),
                            [](const NamingElement& row) { return row.isDynamic; }) == 36);

XString ValueOf(const NamingElement& row, XTagList& values) {
    XString value = FirstLine(values.Get(row.key));
    if (row.part != Part::whole)
        value = SlashPart(value, row.part == Part::second);
    if (row.isPadded && value.Count() == 1)
        value.InsertChar(L'0', 1);
    return value;
}

// Extras may begin with anything.
int FindElement(const XString& text, const wchar_t* element, int from) {
    return *element == L'[' ? FindBracketed(text, element, from) : text.Find(element, from, true);
}

// No value holds an opening bracket, so each replacement leaves one bracket less in the text.
bool ReplaceRow(clNamingText& work, const NamingElement& row, XTagList& values) {
    int p = FindElement(work.text, row.element, 1);
    if (p == 0)
        return true;
    const XString value = ValueOf(row, values);
    const int length = TextLength(row.element);
    while (p > 0) {
        if (!work.Put(p, p + length - 1, value))
            return false;
        // The value may have joined what stands around it; before that nothing is new.
        p = FindElement(work.text, row.element, std::max(1, p - length + 1));
    }
    return true;
}

int Occurrences(const XString& text, const XString& needle) {
    int count = 0;
    for (int p = text.Find(needle, 1, true); p > 0; p = text.Find(needle, p + needle.Count(), true))
        ++count;
    return count;
}

// An extra without a bracket could be part of its own value: all occurrences are replaced at once, and
// what was put in isn't searched again.
bool ReplaceBareWord(clNamingText& work, const XString& word, XTagList& values) {
    const XString value = FirstLine(values.Get(word));
    const int count = Occurrences(work.text, word);
    if (count == 0)
        return true;
    if (!work.Spend(static_cast<std::int64_t>(count) * value.Count()))
        return false;
    work.text.Replace(word, value, true);
    return true;
}

bool ReplaceExtra(clNamingText& work, const XString& word, XTagList& values) {
    // The search goes through a text in lower case: a word with a capital is never found.
    if (word.IsEmpty() || !(word.Lower() == word))
        return true;
    if (word.FindChar(L'[') == 0)
        return ReplaceBareWord(work, word, values);
    return ReplaceRow(work, {word, word}, values);
}

constexpr wchar_t tagWrapper[] = L"[tag]";
constexpr int tagWrapperLength = 5;
constexpr wchar_t tagsWrapper[] = L"[tags]";
constexpr int tagsWrapperLength = 6;

std::int64_t JoinedUnits(const XString& value, const XString& delimiter) {
    const std::int64_t count = std::count(value.Text(), value.Text() + value.Count(), L'\r');
    return value.Count() + count * delimiter.Count();
}

// "key,delimiter": the values joined; empty unless there is exactly one comma. False if the
// allowance is spent.
bool JoinedValues(XString& out, XString inside, XTagList& values, clNamingText& work) {
    out.Clear();
    const int comma = inside.FindChar(L',');
    if (comma == 0 || inside.FindChar(L',', comma + 1) > 0)
        return true;
    const XString value = values.Get(NextArgument(inside, false));
    inside.Replace(templateCommaWord, L",");
    if (!work.Spend(JoinedUnits(value, inside)))
        return false;
    out = value;
    out.Replace(L"\r", inside);
    return true;
}

} // namespace

void ReplaceElements(clNamingText& work, XTagList& values, const XStringArray* extras) {
    for (const NamingElement& row : table)
        if (!ReplaceRow(work, row, values))
            return;
    if (!extras)
        return;
    for (const XString& word : *extras)
        if (!ReplaceExtra(work, word, values))
            return;
}

void ReplaceTagWrappers(clNamingText& work, XTagList& values) {
    int from = 1;
    for (;;) {
        const int p = FindBracketed(work.text, tagWrapper, from);
        const int q = p ? work.text.Find(closingToken, p) : 0;
        if (q == 0)
            return;
        const XString key = work.text.Mid(p + tagWrapperLength, q - 1);
        if (!work.Put(p, q + closingLength - 1, FirstLine(values.Get(key))))
            return;
        from = std::max(1, p - tagWrapperLength + 1);
    }
}

void ReplaceTagsWrappers(clNamingText& work, XTagList& values) {
    int from = 1;
    for (;;) {
        const int p = FindBracketed(work.text, tagsWrapper, from);
        const int q = p ? work.text.Find(closingToken, p) : 0;
        if (q == 0)
            return;
        const XString inside = work.text.Mid(p + tagsWrapperLength, q - 1);
        XString value;
        if (!JoinedValues(value, inside, values, work) || !work.Put(p, q + closingLength - 1, value))
            return;
        from = std::max(1, p - tagsWrapperLength + 1);
    }
}

bool HasDynamicItem(const XString& namingTemplate) {
    return std::any_of(std::begin(table), std::end(table), [&](const NamingElement& row) {
        return row.isDynamic && FindBracketed(namingTemplate, row.element, 1) > 0;
    });
}
