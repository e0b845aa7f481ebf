// The table of functions, their computation, and the search for the next call.
#include "naming/NamingFunctions.h"

#include "foundation/XArray.h"
#include "foundation/XPath.h"

#include <algorithm>
#include <climits>

namespace {

// Where functions look up what is not in their arguments.
struct Sources {
    XTagList& values;     // escaped
    XStringArray folders; // of the source, as they are on disk
};

// No path is longer, so padding beyond it serves nobody.
constexpr std::int64_t maximumPadding = 32767;
constexpr std::int64_t blank = 32;

std::int64_t NextNumber(XString& args) {
    return NextArgument(args, false).ToInt();
}

int Position(std::int64_t value) {
    return static_cast<int>(std::clamp<std::int64_t>(value, INT_MIN, INT_MAX));
}

// An end below 1 stands for the end of the text.
int EndPosition(std::int64_t to, const XString& text) {
    return to < 1 ? text.Count() : Position(to);
}

void RestoreCommas(XString& text) {
    text.Replace(templateCommaWord, L",");
}

// ---- Text ----------------------------------------------------------------------------------------

XString Upper(XString& args, Sources&) {
    return args.Upper();
}

XString Lower(XString& args, Sources&) {
    return args.Lower();
}

XString Right(XString& args, Sources&) {
    const std::int64_t count = NextNumber(args);
    return args.Right(Position(count));
}

XString Grab(XString& args, Sources&) {
    const std::int64_t from = NextNumber(args);
    const std::int64_t to = NextNumber(args);
    return args.Mid(Position(from), EndPosition(to, args));
}

XString Trim(XString& args, Sources&) {
    args.TrimRight();
    args.TrimLeft();
    return args;
}

XString Del(XString& args, Sources&) {
    const std::int64_t from = NextNumber(args);
    const std::int64_t to = NextNumber(args);
    args.Delete(Position(from), EndPosition(to, args));
    return args;
}

XString Repeated(std::int64_t code, std::int64_t count) {
    XString text;
    text.SetLength(static_cast<int>(count));
    std::fill_n(text.Buffer(), count, static_cast<wchar_t>(code));
    return text;
}

// The characters to pad with come as their codes.
XString SetLen(XString& args, Sources&) {
    const std::int64_t count = NextNumber(args);
    const std::int64_t pre = NextNumber(args);
    const std::int64_t post = NextNumber(args);
    if (args.Count() > count) {
        if (count >= 0)
            args.SetLength(static_cast<int>(count));
        return args;
    }
    const std::int64_t missing = std::max<std::int64_t>(std::min(count, maximumPadding) - args.Count(), 0);
    if (pre != 0)
        return Repeated(pre, missing) + args;
    args.Extend(Repeated(post != 0 ? post : blank, missing));
    return args;
}

XString MaxLength(XString& args, Sources&) {
    const std::int64_t maximum = NextNumber(args);
    if (maximum >= 0 && args.Count() > maximum)
        args.SetLength(static_cast<int>(maximum));
    return args;
}

// ---- Conditions ----------------------------------------------------------------------------------

bool IsCompilation(Sources& sources) {
    const XString value = sources.values.Get(L"compilation");
    return !value.IsEmpty() && !value.EqualsNoCase(L"no") && !value.EqualsNoCase(L"false") &&
           !value.EqualsNoCase(L"0");
}

XString IfCompilation(XString& args, Sources& sources) {
    return IsCompilation(sources) ? args : XString();
}

XString IfNoCompilation(XString& args, Sources& sources) {
    return IsCompilation(sources) ? XString() : args;
}

std::int64_t DiscTotal(Sources& sources) {
    return SlashPart(sources.values.Get(L"disc"), true).ToInt();
}

XString IfMulti(XString& args, Sources& sources) {
    return DiscTotal(sources) > 1 ? args : XString();
}

XString IfNotMulti(XString& args, Sources& sources) {
    return DiscTotal(sources) < 2 ? args : XString();
}

// True also if the key itself is the text looked for.
bool TakeEquals(XString& args, Sources& sources) {
    const XString key = NextArgument(args, false);
    const XString equals = NextArgument(args, false);
    RestoreCommas(args);
    return sources.values.Get(key).EqualsNoCase(equals) || key.EqualsNoCase(equals);
}

XString IfEquals(XString& args, Sources& sources) {
    return TakeEquals(args, sources) ? args : XString();
}

XString IfNotEquals(XString& args, Sources& sources) {
    return TakeEquals(args, sources) ? XString() : args;
}

bool Holds(const XString& subject, const XString& condition, const XString& match) {
    if (condition == L"=")
        return subject.EqualsNoCase(match);
    if (condition == L"len<")
        return subject.Count() < match.ToInt();
    if (condition == L"len>")
        return subject.Count() > match.ToInt();
    return condition == L"len=" && subject.Count() == match.ToInt();
}

// The first argument is compared as it stands; an element has put its value there.
XString If(XString& args, Sources&) {
    const XString subject = NextArgument(args, false);
    const XString condition = NextArgument(args, false);
    const XString match = NextArgument(args, false);
    XString whenTrue = NextArgument(args, false);
    XString& chosen = Holds(subject, condition, match) ? whenTrue : args;
    RestoreCommas(chosen);
    return chosen;
}

XString IfValue(XString& args, Sources& sources) {
    const XString key = NextArgument(args, false);
    XString whenSet = NextArgument(args, false);
    return sources.values.Get(key).IsEmpty() ? args : whenSet;
}

// ---- Folders -------------------------------------------------------------------------------------

// Runs of backslashes become one; one at the end goes.
XString TidyFolders(const XString& path) {
    XString tidy;
    tidy.SetLength(path.Count());
    wchar_t* to = tidy.Buffer();
    for (int i = 1; i <= path.Count(); ++i) {
        const wchar_t next = path.CharAt(i + 1);
        const bool isSpare = path.CharAt(i) == L'\\' && (next == L'\\' || i == path.Count());
        if (!isSpare)
            *to++ = path.CharAt(i);
    }
    tidy.SetLength(static_cast<int>(to - tidy.Buffer()));
    return tidy;
}

// Takes components off the end as PopLastFolder does, but looks for the root once, since a long value
// may hold thousands of them. What can't be taken off is the first folder, or the drive.
XString TrimFirstFolder(XString& args, Sources&) {
    const XString& whole = args;
    const int root = RootEnd(whole);
    int first = 0; // of the outermost component taken off
    int end = whole.Count();
    while (root > 1 && end >= root) {
        while (end > 0 && whole.CharAt(end) == L'\\')
            --end;
        int slash = end;
        while (slash > 0 && whole.CharAt(slash) != L'\\')
            --slash;
        if (slash == 0)
            break;
        first = slash + 1;
        end = slash;
    }
    return first ? TidyFolders(whole.From(first)) : XString();
}

XString TrimLastFolder(XString& args, Sources&) {
    XString last;
    PopLastFolder(last, args);
    return args;
}

// `pos` from 1; counted from the end if `fromEnd`. A folder stands there as it is on disk: its brackets
// and commas are read as language.
XString SourceFolder(std::int64_t pos, bool fromEnd, Sources& sources) {
    const XStringArray& folders = sources.folders;
    if (pos < 1 || pos > folders.Count())
        return {};
    return folders[fromEnd ? folders.Count() - pos : pos - 1];
}

XString FrontFolder(XString& args, Sources& sources) {
    return SourceFolder(args.ToInt(), false, sources);
}

XString BackFolder(XString& args, Sources& sources) {
    return SourceFolder(args.ToInt(), true, sources);
}

// ---- Search and replacement ----------------------------------------------------------------------

struct NamingFunction {
    const wchar_t* name;                              // upper case
    XString (*compute)(XString& args, Sources& from); // may use up `args`
};
// No name is the beginning of another, so at most one row matches at a position.
constexpr NamingFunction table[] = {
    {L"[UPPER]", Upper},
    {L"[LOWER]", Lower},
    {L"[RIGHT]", Right},
    {L"[GRAB]", Grab},
    {L"[TRIM]", Trim},
    {L"[DEL]", Del},
    {L"[SETLEN]", SetLen},
    {L"[IFCOMP]", IfCompilation},
    {L"[IF!COMP]", IfNoCompilation},
    {L"[IFMULTI]", IfMulti},
    {L"[IF!MULTI]", IfNotMulti},
    {L"[IFEQUALS]", IfEquals},
    {L"[IF!EQUALS]", IfNotEquals},
    {L"[IF]", If},
    {L"[IFVALUE]", IfValue},
    {L"[TRIMFIRSTFOLDER]", TrimFirstFolder},
    {L"[TRIMLASTFOLDER]", TrimLastFolder},
    {L"[MAXLENGTH]", MaxLength},
    {L"[FRONTFOLDER]", FrontFolder},
    {L"[BACKFOLDER]", BackFolder},
};

const NamingFunction* FunctionAt(const XString& text, int p) {
    if (text.CharAt(p) != L'[')
        return nullptr;
    for (const NamingFunction& row : table)
        if (StandsAt(text.Text() + p - 1, row.name))
            return &row;
    return nullptr;
}

} // namespace

void EvaluateFunctions(clNamingText& work, XTagList& values, XTagList& elements) {
    Sources sources{values, {}};
    Split(sources.folders, elements.Get(L"origpath"), L"\\");
    int p = work.text.Count();
    while (p > 0) {
        const NamingFunction* function = FunctionAt(work.text, p);
        if (!function) {
            --p;
            continue;
        }
        const int q = work.text.Find(closingToken, p);
        if (q == 0)
            return;
        XString args = work.text.Mid(p + TextLength(function->name), q - 1);
        const XString result = function->compute(args, sources);
        if (!work.Put(p, q + closingLength - 1, result))
            return;
        // Behind the result no call begins: this one was the right-most.
        p = std::min(p + result.Count() - 1, work.text.Count());
    }
}
