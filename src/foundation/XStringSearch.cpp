// Access, search, comparison and extraction.
#include "foundation/XString.h"

#include "foundation/XUnits.h"

#include <algorithm>

wchar_t XString::CharAt(int pos) const noexcept {
    pos = MapEnd(pos);
    return pos < 1 || pos >= length ? L'\0' : text[pos - 1];
}

int XString::Find(const wchar_t* needle, int from, bool ignoreCase) const {
    from = MapEnd(from);
    if (!needle || from < 1 || from >= length)
        return 0;
    return FindUnits(text, Count(), needle, TextLength(needle), from - 1, ignoreCase) + 1;
}

int XString::FindChar(wchar_t ch, int from) const noexcept {
    from = MapEnd(from);
    if (from < 1)
        return 0;
    for (int pos = from; pos < length; ++pos)
        if (text[pos - 1] == ch)
            return pos;
    return 0;
}

int XString::ReverseFindChar(wchar_t ch) const noexcept {
    for (int pos = Count(); pos >= 1 && text[pos - 1]; --pos)
        if (text[pos - 1] == ch)
            return pos;
    return 0;
}

bool XString::Equals(const wchar_t* other) const noexcept {
    if (!other)
        return false;
    const wchar_t* mine = text;
    while (*mine && *mine == *other) {
        ++mine;
        ++other;
    }
    return *mine == *other;
}

int XString::CompareNoCase(const wchar_t* other) const noexcept {
    if (!other)
        return 1;
    const wchar_t* mine = text;
    while (*mine && FoldDown(*mine) == FoldDown(*other)) {
        ++mine;
        ++other;
    }
    if (FoldDown(*mine) == FoldDown(*other))
        return 0;
    return FoldDown(*mine) > FoldDown(*other) ? 1 : -1;
}

bool XString::StartsWith(const wchar_t* head) const noexcept {
    if (!head)
        return false;
    for (int i = 0; head[i]; ++i)
        if (i >= Count() || text[i] != head[i])
            return false;
    return true;
}

XString XString::Mid(int from, int to) const {
    XString part;
    from = MapEnd(from);
    to = std::min(MapEnd(to), Count());
    if (from >= 1 && from < length && to >= from)
        part.Assign(text + from - 1, to - from + 2);
    return part;
}

XString XString::Left(int n) const {
    return Mid(1, n);
}

XString XString::Right(int n) const {
    n = MapEnd(n);
    return n <= 0 ? XString() : Mid(n >= length ? 1 : length - n, Count());
}

XString XString::From(int pos) const {
    return Mid(pos, Count());
}

XString XString::Upper() const {
    XString copy(*this);
    std::transform(copy.text, copy.text + copy.length, copy.text, FoldUp);
    return copy;
}

XString XString::Lower() const {
    XString copy(*this);
    std::transform(copy.text, copy.text + copy.length, copy.text, FoldDown);
    return copy;
}
