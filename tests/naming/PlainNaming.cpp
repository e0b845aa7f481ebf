// Pass by pass, search from the first position each time.
#include "PlainNaming.h"

#include "foundation/XPath.h"

#include <climits>

namespace {

constexpr wchar_t elementWords[] =
    L"[artist]\r[album]\r[album "
    L"artist]\r[composer]\r[conductor]\r[title]\r[genre]\r[year]\r[track]\r[track_total]\r"
    L"[disc]\r[disc_total]\r[band]\r[rating]\r[tempo]\r[label]\r[isrc]\r[upc]\r[compilation]\r[mood]\r[style]"
    L"\r"
    L"[copyright]\r[subtitle]\r[unique]\r[discunique]\r[length]\r[length_mmss]\r[length_hhmmss]\r[encoder]\r"
    L"[encoder+]\r[extension]\r[cddb_id]\r[origdrive]\r[origpath]\r[origfilename]\r[protected]\r[id_tag]\r"
    L"[audio_quality]\r[gapless]\r[date]\r[time]\r[day_of_week]\r[now_year]\r[frequency]\r[channels]\r"
    L"[channels_subone]\r[bits_per_sample]\r[bytes_per_sample]\r[bitrate]\r[k_bitrate]";
constexpr wchar_t functionWords[] =
    L"UPPER\rLOWER\rRIGHT\rGRAB\rTRIM\rDEL\rSETLEN\rIFCOMP\rIF!COMP\rIFMULTI\rIF!MULTI\rIFEQUALS\rIF!EQUALS\r"
    L"IF\rIFVALUE\rTRIMFIRSTFOLDER\rTRIMLASTFOLDER\rMAXLENGTH\rFRONTFOLDER\rBACKFOLDER";
constexpr std::int64_t patience = 400000;
constexpr std::int64_t searchPatience = 1000000;

struct Plain {
    XString result;
    XTagList values;
    XStringArray folders;
    std::int64_t spent = 0;
    std::int64_t searched = 0;

    bool Swap(int first, int last, const XString& value) {
        spent += 64 + value.Count();
        searched += result.Count();
        if (spent > patience || searched > searchPatience)
            return false;
        result.Delete(first, last);
        result.Insert(value, first);
        return true;
    }
};

XString First(const XString& text) {
    return text.FindChar(L'\r') ? text.Left(text.FindChar(L'\r') - 1) : text;
}

XString Slashed(const XString& text, bool second) {
    const int slash = text.FindChar(L'/');
    XString part = slash == 0 ? (second ? XString() : text)
                   : second   ? text.From(slash + 1)
                              : text.Left(slash - 1);
    part.TrimRight();
    part.TrimLeft();
    return part;
}

XString Next(XString& args) {
    const int comma = args.FindChar(L',');
    const XString argument = comma ? args.Left(comma - 1) : args;
    args = comma ? args.From(comma + 1) : XString();
    return argument;
}

std::int64_t Number(XString& args) {
    return Next(args).ToInt();
}

int Narrowed(std::int64_t value) {
    return value > INT_MAX ? INT_MAX : value < INT_MIN ? INT_MIN : static_cast<int>(value);
}

void Unwrap(XString& text, const wchar_t* name, const wchar_t* opening, const wchar_t* closing) {
    const XString both = XString(name) + opening;
    const bool isElement = TextLength(opening) == 1;
    for (int p = text.Find(both, 1, true); p; p = text.Find(both, p + 1, true)) {
        const int behind = p + TextLength(name);
        text.Delete(behind, behind + TextLength(opening) - 1);
        const int q = text.Find(closing, isElement ? behind : p, true);
        if (q)
            text.Delete(q, q + TextLength(closing) - 1);
    }
}

bool Elements(Plain& work, const XStringArray* extras) {
    XStringArray words;
    Split(words, elementWords, L"\r");
    const std::int64_t own = words.Count();
    for (std::int64_t i = 0; extras && i < extras->Count(); ++i)
        words.AddString((*extras)[i]);
    for (std::int64_t i = 0; i < words.Count(); ++i) {
        const XString& word = words[i];
        XString key = i < own ? word.Mid(2, word.Count() - 1) : word;
        const bool isSecond = i < own && (word == L"[track_total]" || word == L"[disc_total]");
        if (isSecond)
            key = key.FindChar(L'_') ? key.Left(key.FindChar(L'_') - 1) : key;
        const bool isTrack = i < own && key == L"track";
        const bool isDisc = i < own && key == L"disc";
        for (int p = work.result.Lower().Find(word); p; p = work.result.Lower().Find(word)) {
            XString value = First(work.values.Get(key));
            if (isTrack || isDisc)
                value = Slashed(value, isSecond);
            if (isTrack && value.Count() == 1)
                value.Insert(L"0", 1);
            if (!work.Swap(p, p + word.Count() - 1, value))
                return false;
        }
    }
    return true;
}

bool Wrappers(Plain& work, const wchar_t* wrapper, bool isMany) {
    for (;;) {
        const int p = work.result.Lower().Find(wrapper);
        const int q = p ? work.result.Find(L"[]", p) : 0;
        if (!q)
            return true;
        const XString inside = work.result.Mid(p + TextLength(wrapper), q - 1);
        XString value;
        XStringArray pieces;
        if (isMany)
            Split(pieces, inside, L",");
        else
            value = First(work.values.Get(inside));
        if (pieces.Count() == 2) {
            pieces[1].Replace(L"_COMMA_", L",");
            value = work.values.Get(pieces[0]);
            if (static_cast<std::int64_t>(value.Count()) * (pieces[1].Count() + 1) > patience)
                return false;
            value.Replace(L"\r", pieces[1]);
        }
        if (!work.Swap(p, q + 1, value))
            return false;
    }
}

XString WithoutFirst(XString text) {
    XStringArray parts;
    XString part;
    for (PopLastFolder(part, text); !part.IsEmpty(); PopLastFolder(part, text))
        parts.AddString(part);
    if (!text.IsEmpty())
        parts.AddString(text);
    XString joined;
    for (std::int64_t i = parts.Count() - 2; i >= 0; --i) {
        joined += parts[i];
        if (i > 0)
            joined += L"\\";
    }
    return joined;
}

XString Padded(XString& args, bool& isTooLong) {
    const std::int64_t count = Number(args);
    const std::int64_t pre = Number(args);
    const std::int64_t post = Number(args);
    isTooLong = count > 5000;
    if (isTooLong)
        return args;
    if (args.Count() > count) {
        if (count >= 0)
            args.SetLength(static_cast<int>(count));
        return args;
    }
    while (args.Count() < count)
        if (pre)
            args.InsertChar(static_cast<wchar_t>(pre), 1);
        else
            args.InsertChar(static_cast<wchar_t>(post ? post : 32));
    return args;
}

XString Folder(Plain& work, std::int64_t pos) {
    return pos >= 1 && pos <= work.folders.Count() ? work.folders[pos - 1] : XString();
}

XString OfText(const XString& name, XString args, bool& isTooLong) {
    if (name == L"UPPER")
        return args.Upper();
    if (name == L"LOWER")
        return args.Lower();
    if (name == L"TRIM") {
        args.TrimRight();
        args.TrimLeft();
        return args;
    }
    if (name == L"TRIMFIRSTFOLDER")
        return WithoutFirst(args);
    if (name == L"TRIMLASTFOLDER") {
        XString last;
        PopLastFolder(last, args);
        return args;
    }
    if (name == L"SETLEN")
        return Padded(args, isTooLong);
    const std::int64_t first = Number(args);
    if (name == L"RIGHT")
        return args.Right(Narrowed(first));
    if (name == L"MAXLENGTH") {
        if (first >= 0 && args.Count() > first)
            args.SetLength(Narrowed(first));
        return args;
    }
    const std::int64_t last = Number(args);
    const int end = last < 1 ? args.Count() : Narrowed(last);
    if (name == L"GRAB")
        return args.Mid(Narrowed(first), end);
    args.Delete(Narrowed(first), end); // DEL
    return args;
}

XString OfCondition(Plain& work, const XString& name, XString args) {
    if (name == L"IFCOMP" || name == L"IF!COMP") {
        const XString value = work.values.Get(L"compilation").Lower();
        const bool passes = !(value.IsEmpty() || value == L"no" || value == L"false" || value == L"0");
        return passes == (name == L"IFCOMP") ? args : XString();
    }
    if (name == L"IFMULTI" || name == L"IF!MULTI") {
        const bool passes = Slashed(work.values.Get(L"disc"), true).ToInt() > 1;
        return passes == (name == L"IFMULTI") ? args : XString();
    }
    const XString tag = Next(args);
    if (name == L"IFVALUE") {
        const XString yes = Next(args);
        return work.values.Get(tag).IsEmpty() ? args : yes;
    }
    if (name != L"IF") {
        const XString equals = Next(args);
        args.Replace(L"_COMMA_", L",");
        const bool passes = work.values.Get(tag).EqualsNoCase(equals) || tag.EqualsNoCase(equals);
        return passes == (name == L"IFEQUALS") ? args : XString();
    }
    const XString condition = Next(args);
    XString match = Next(args);
    XString yes = Next(args);
    yes.Replace(L"_COMMA_", L",");
    args.Replace(L"_COMMA_", L",");
    const std::int64_t number = match.ToInt();
    const bool passes =
        (condition == L"=" && tag.EqualsNoCase(match)) || (condition == L"len<" && tag.Count() < number) ||
        (condition == L"len>" && tag.Count() > number) || (condition == L"len=" && tag.Count() == number);
    return passes ? yes : args;
}

// False when there is nothing to do any more, or too much.
bool Step(Plain& work, bool& isGivenUp) {
    static XStringArray names;
    if (names.IsEmpty())
        Split(names, functionWords, L"\r");
    int p = 0;
    XString name;
    const XString upper = work.result.Upper();
    for (const XString& candidate : names) {
        const XString word = L"[" + candidate + L"]";
        for (int at = upper.Find(word); at; at = upper.Find(word, at + 1))
            if (at > p) {
                p = at;
                name = candidate;
            }
    }
    const int q = p ? work.result.Find(L"[]", p) : 0;
    if (!q)
        return false;
    const XString args = work.result.Mid(p + name.Count() + 2, q - 1);
    XString value;
    XString pos(args);
    if (name == L"FRONTFOLDER")
        value = Folder(work, pos.ToInt());
    else if (name == L"BACKFOLDER")
        value = pos.ToInt() < 1 ? XString() : Folder(work, work.folders.Count() + 1 - pos.ToInt());
    else if (name.StartsWith(L"IF"))
        value = OfCondition(work, name, args);
    else
        value = OfText(name, args, isGivenUp);
    isGivenUp = isGivenUp || !work.Swap(p, q + 1, value);
    return !isGivenUp;
}

} // namespace

bool EvaluatePlainly(XString& out, const XString& naming, XTagList& tags, const XStringArray* extras) {
    Plain work;
    work.values.Merge(tags);
    work.result = naming;
    for (XTagItem& item : work.values.items) {
        item.value.Replace(L",", L"<comma_>", true);
        item.value.Replace(L"[", L"<brackets_>", true);
        const bool isPath = item.key.EqualsNoCase(L"origpath") || item.key.EqualsNoCase(L"origfilename") ||
                            item.key.EqualsNoCase(L"origdrive");
        if (!isPath && !(extras && extras->Contains(item.key, true)))
            item.value.Replace(L"\\", L"-");
    }
    for (const wchar_t* name : {L"[ifvAlue]", L"[ifequals]", L"[if!equals]"}) {
        Unwrap(work.result, name, L"[tag]", L"[]");
        Unwrap(work.result, name, L"[", L"]");
    }
    if (!Elements(work, extras) || !Wrappers(work, L"[tag]", false) || !Wrappers(work, L"[tags]", true))
        return false;
    Split(work.folders, tags.Get(L"origpath"), L"\\");
    bool isGivenUp = false;
    while (Step(work, isGivenUp))
        continue;
    work.result.Replace(L"<comma_>", L",", true);
    work.result.Replace(L"<brackets_>", L"[", true);
    out = work.result;
    return !isGivenUp;
}
