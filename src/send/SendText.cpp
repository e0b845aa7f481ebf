// The command line's words and the spool's lines.
#include "send/SendText.h"

namespace {

constexpr int timeDigits = 16; // of a start time; a blank stands behind

bool IsSpoolLine(const XString& line) {
    for (int at = 1; at <= timeDigits; ++at) {
        const wchar_t digit = line.CharAt(at);
        if (!(digit >= L'0' && digit <= L'9') && !(digit >= L'A' && digit <= L'F'))
            return false;
    }
    return line.CharAt(timeDigits + 1) == L' ' && line.Count() > timeDigits + 1;
}

struct clSpoolLine {
    const XString* line;
    std::int64_t place; // in the spool

    [[nodiscard]] bool IsBefore(const clSpoolLine& other) const {
        const int order = line->Left(timeDigits).CompareNoCase(other.line->Left(timeDigits));
        return order != 0 ? order < 0 : place < other.place;
    }
};

} // namespace

void SplitPaths(const wchar_t* tail, XStringArray& paths) {
    const XString text(tail);
    XString word;
    bool isQuoted = false;
    for (int at = 1; at <= text.Count() + 1; ++at) {
        const wchar_t unit = text.CharAt(at); // 0 behind the end
        if (unit == L'"') {
            isQuoted = !isQuoted;
        } else if (unit != 0 && (isQuoted || (unit != L' ' && unit != L'\t'))) {
            word.InsertChar(unit);
        } else if (!word.IsEmpty()) {
            paths.AddString(word);
            word.Clear();
        }
    }
}

clSendCommand CommandOf(const XStringArray& words) {
    if (words.IsEmpty())
        return clSendCommand::nothing;
    if (words.Count() == 1 && words[0].EqualsNoCase(L"/register"))
        return clSendCommand::registerEntries;
    if (words.Count() == 1 && words[0].EqualsNoCase(L"/unregister"))
        return clSendCommand::unregisterEntries;
    return clSendCommand::sendPaths;
}

XString SpoolText(std::uint64_t startTime, const XStringArray& paths) {
    XString time;
    time.ToHex(startTime);
    XString text;
    for (const XString& path : paths) {
        text.Extend(time);
        text.Extend(L" ");
        text.Extend(path);
        text.Extend(L"\r\n");
    }
    return text;
}

void PathsOfSpool(const XStringArray& lines, XStringArray& paths) {
    XArray<clSpoolLine> ordered;
    for (std::int64_t i = 0; i < lines.Count(); ++i)
        if (IsSpoolLine(lines[i]))
            ordered.AddPointer(new clSpoolLine{&lines[i], i});
    ordered.Sort([](const clSpoolLine& a, const clSpoolLine& b) { return a.IsBefore(b); });
    for (const clSpoolLine& entry : ordered)
        paths.AddString(entry.line->From(timeDigits + 2));
}

XString ListText(const XStringArray& paths) {
    XString text;
    for (const XString& path : paths) {
        text.Extend(path);
        text.Extend(L"\r\n");
    }
    return text;
}
