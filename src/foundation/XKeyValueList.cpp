// The option parser: its language is small and has no escape character.
#include "foundation/XKeyValueList.h"

namespace {

XString Part(const wchar_t* from, const wchar_t* end) {
    XString part;
    part.Assign(from, static_cast<int>(end - from) + 1);
    return part;
}

const wchar_t* FindUnit(const wchar_t* at, wchar_t ch) noexcept {
    while (*at && *at != ch)
        ++at;
    return at;
}

bool EndsKey(wchar_t ch) noexcept {
    return ch == 0 || ch == L'"' || ch == L'=' || ch == L' ';
}

// Behind the closing quote of a quoted program path; null for an unquoted one.
const wchar_t* BehindQuotedProgram(const wchar_t* commandLine) noexcept {
    if (*commandLine != L'"')
        return nullptr;
    const wchar_t* quote = FindUnit(commandLine + 1, L'"');
    return *quote ? quote + 1 : quote;
}

} // namespace

void XKeyValueList::Parse(const wchar_t* text, int start) {
    keys.Clear();
    values.Clear();
    if (!text || start < 1 || start > TextLength(text))
        return;
    const wchar_t* at = text + start - 1;
    for (;;) {
        at = FindUnit(at, L'-');
        if (!*at)
            return;
        const wchar_t* key = at + 1;
        if (*key == L'-')
            ++key;
        at = key;
        while (!EndsKey(*at))
            ++at;
        if (at == key) { // a lone hyphen is no option
            if (*at)
                ++at;
            continue;
        }
        keys.AddNew(Part(key, at));
        XString* value = values.AddString(L"");
        while (*at == L' ' || *at == L'=')
            ++at;
        if (!*at || *at == L'-')
            continue;
        if (*at == L'"') {
            ++at;
            const wchar_t* quote = FindUnit(at, L'"');
            if (!*quote) // unterminated: the value stays empty, what follows may hold options
                continue;
            *value = Part(at, quote);
            at = quote + 1;
            continue;
        }
        const wchar_t* end = FindUnit(at, L' ');
        *value = Part(at, end);
        at = *end ? end + 1 : end;
    }
}

bool XKeyValueList::GetValue(const wchar_t* key, XString& out) const {
    for (std::int64_t i = 0; i < keys.Count(); ++i)
        if (keys[i].EqualsNoCase(key)) {
            out = values[i];
            return true;
        }
    out.Clear();
    return false;
}

bool XKeyValueList::Has(const wchar_t* key) const {
    return keys.Contains(key, true);
}

// An unquoted program path is parsed along: a hyphen in it gives a key that nobody asks for.
void XKeyValueList::ParseCommandLine(const wchar_t* commandLine) {
    if (!commandLine)
        commandLine = L"";
    const wchar_t* behind = BehindQuotedProgram(commandLine);
    Parse(behind ? behind : commandLine);
}

XString CommandLineTail(const wchar_t* commandLine) {
    if (!commandLine)
        return XString();
    const wchar_t* behind = BehindQuotedProgram(commandLine);
    if (!behind)
        behind = FindUnit(commandLine, L' ');
    XString tail(behind);
    tail.TrimRight();
    tail.TrimLeft();
    return tail;
}
