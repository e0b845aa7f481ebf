// Edits in place. Positions count from 1; what lies outside changes nothing.
#include "foundation/XString.h"

#include "foundation/XUnits.h"

#include <algorithm>

void XString::Delete(int from, int to) {
    from = MapEnd(from);
    to = MapEnd(to);
    if (from < 1 || from >= length || to < from)
        return;
    const std::int64_t count = static_cast<std::int64_t>(to) - from + 1;
    const std::int64_t next = from - 1 + count;
    if (next < length)
        CopyUnits(text + from - 1, text + next, length - next);
    // The full count goes off the length even if fewer characters lay behind `from`.
    length = static_cast<int>(std::max<std::int64_t>(length - count, 1));
    text[length - 1] = 0;
}

void XString::Insert(const wchar_t* other, int pos) {
    pos = MapEnd(pos);
    const int count = TextLength(other);
    if (count == 0 || pos < 1 || pos > length)
        return;
    const XString copy(other); // `other` may be part of this text
    Reserve(static_cast<std::int64_t>(length) + count, 32);
    CopyUnits(text + pos - 1 + count, text + pos - 1, length - pos + 1);
    CopyUnits(text + pos - 1, copy.text, count);
    length += count;
}

void XString::InsertChar(wchar_t ch, int pos) {
    if (pos == XSTR_END)
        pos = length;
    if (pos < 1 || pos > length)
        return;
    Reserve(static_cast<std::int64_t>(length) + 1, 32);
    CopyUnits(text + pos, text + pos - 1, length - pos + 1);
    text[pos - 1] = ch;
    ++length;
}

void XString::SetCharAt(int pos, wchar_t ch) noexcept {
    pos = MapEnd(pos);
    if (pos >= 1 && pos < length)
        text[pos - 1] = ch;
}

void XString::SetLength(int n) {
    n = MapEnd(n);
    if (n < 0)
        return;
    Reserve(static_cast<std::int64_t>(n) + 1, 0);
    if (n > Count())
        std::fill(text + Count(), text + n, L' ');
    length = n + 1;
    text[n] = 0;
}

void XString::FitLength() {
    const wchar_t* end = std::find(text, text + capacity - 1, L'\0');
    length = static_cast<int>(end - text) + 1;
    text[length - 1] = 0;
}

void XString::TrimLeft() {
    int blanks = 0;
    while (blanks < Count() && text[blanks] == L' ')
        ++blanks;
    if (blanks > 0)
        Delete(1, blanks);
}

void XString::TrimRight() {
    while (length > 1 && text[length - 2] == L' ')
        --length;
    text[length - 1] = 0;
}

// One pass over the text: what was put in is never searched again.
void XString::Replace(const wchar_t* from, const wchar_t* to, bool ignoreCase) {
    const int fromCount = TextLength(from);
    int match = fromCount ? FindUnits(text, Count(), from, fromCount, 0, ignoreCase) : -1;
    if (match < 0)
        return;
    const int toCount = TextLength(to);
    XString result;
    int done = 0;
    for (; match >= 0; match = FindUnits(text, Count(), from, fromCount, done, ignoreCase)) {
        result.AppendUnits(text + done, match - done, true);
        result.AppendUnits(to, toCount, true);
        done = match + fromCount;
    }
    result.AppendUnits(text + done, Count() - done, true);
    Reserve(result.length, 32);
    Assign(result.text, result.length);
}
