// Storage, search, extraction and editing of XString. Numbers and Format stand in XStringNumber.cpp.
#include "foundation/XString.h"

#include "foundation/XCodePage.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstring>
#include <functional>
#include <new>

namespace {

wchar_t FoldUp(wchar_t ch) noexcept {
    return ch >= L'a' && ch <= L'z' ? static_cast<wchar_t>(ch - 32) : ch;
}

wchar_t FoldDown(wchar_t ch) noexcept {
    return ch >= L'A' && ch <= L'Z' ? static_cast<wchar_t>(ch + 32) : ch;
}

void CopyUnits(wchar_t* to, const wchar_t* from, std::int64_t units) noexcept {
    if (units > 0)
        std::memmove(to, from, static_cast<std::size_t>(units) * sizeof(wchar_t));
}

// A size that an int can't count is a request that no allocator can meet.
wchar_t* AllocateUnits(std::int64_t units) {
    if (units > INT_MAX)
        throw std::bad_alloc();
    return new wchar_t[static_cast<std::size_t>(units)];
}

// 0-based index of the first match at or behind `start`; -1 if none.
int FindUnits(const wchar_t* text, int count, const wchar_t* needle, int needleCount, int start,
              bool ignoreCase) {
    for (int i = start; i + static_cast<std::int64_t>(needleCount) <= count; ++i) {
        int k = 0;
        if (ignoreCase)
            while (k < needleCount && FoldUp(text[i + k]) == FoldUp(needle[k]))
                ++k;
        else
            while (k < needleCount && text[i + k] == needle[k])
                ++k;
        if (k == needleCount)
            return i;
    }
    return -1;
}

} // namespace

int TextLength(const wchar_t* text) noexcept {
    if (!text)
        return 0;
    const wchar_t* end = text;
    while (*end)
        ++end;
    return static_cast<int>(std::min<std::ptrdiff_t>(end - text, INT_MAX - 1));
}

XString::XString() noexcept : text(inlineText) {
    inlineText[0] = 0;
}

XString::XString(const wchar_t* source) : XString() {
    Assign(source);
}

XString::XString(const char* source) : XString() {
    Assign(source);
}

XString::XString(std::int64_t value) : XString() {
    FromInt(value);
}

XString::XString(std::int32_t value) : XString() {
    FromInt(value);
}

XString::XString(const XString& other) : XString() {
    userValue = other.userValue;
    Assign(other.text, other.length);
}

XString::XString(XString&& other) noexcept : XString() {
    userValue = other.userValue;
    *this = std::move(other);
}

XString::~XString() {
    Release();
    delete[] narrowText;
    narrowText = nullptr;
    narrowSize = 0;
}

XString& XString::operator=(const XString& other) {
    if (this != &other)
        Assign(other.text, other.length);
    return *this;
}

XString& XString::operator=(XString&& other) noexcept {
    if (this == &other)
        return *this;
    if (other.IsInline()) { // fits whatever block is here
        CopyUnits(text, other.text, other.length);
        length = other.length;
    } else {
        Release();
        text = other.text;
        length = other.length;
        capacity = other.capacity;
        other.text = other.inlineText;
        other.capacity = inlineUnits;
    }
    other.Clear();
    return *this;
}

XString& XString::operator=(const wchar_t* source) {
    Assign(source);
    return *this;
}

// Frees the heap block and leaves an empty inline text.
void XString::Release() noexcept {
    if (!IsInline())
        delete[] text;
    text = inlineText;
    capacity = inlineUnits;
    Clear();
}

void XString::Clear() noexcept {
    length = 1;
    text[0] = 0;
}

void XString::Reserve(std::int64_t needed, std::int64_t extra) {
    if (capacity >= needed)
        return;
    wchar_t* block = AllocateUnits(needed + extra);
    CopyUnits(block, text, length);
    if (!IsInline())
        delete[] text;
    text = block;
    capacity = static_cast<int>(needed + extra);
}

void XString::Assign(const wchar_t* source, int count) {
    if (!source) {
        Clear();
        return;
    }
    if (count <= 0)
        count = TextLength(source) + 1;
    if (capacity < count) {
        Release(); // first, so that a long list of assignments never holds two blocks
        text = AllocateUnits(count);
        capacity = count;
    }
    CopyUnits(text, source, count - 1);
    length = count;
    text[length - 1] = 0;
}

void XString::Assign(const char* source) {
    const int count = source ? NarrowToWide(source, nullptr, 0) : 0;
    if (count <= 1) {
        Clear();
        return;
    }
    if (capacity < count) {
        Release();
        text = AllocateUnits(count);
        capacity = count;
    }
    NarrowToWide(source, text, count);
    length = count;
    text[length - 1] = 0;
}

// `other` may be part of this text, so it is found again after the block has moved.
void XString::AppendUnits(const wchar_t* other, int units, bool extend) {
    if (!other || units <= 0)
        return;
    const std::int64_t newLength = static_cast<std::int64_t>(length) + units;
    const std::less<const wchar_t*> before;
    const bool isOwn = !before(other, text) && before(other, text + length);
    const std::ptrdiff_t offset = isOwn ? other - text : 0;
    Reserve(newLength, extend ? newLength / 3 : 25);
    CopyUnits(text + length - 1, isOwn ? text + offset : other, units);
    length = static_cast<int>(newLength);
    text[length - 1] = 0;
}

void XString::Append(const wchar_t* other) {
    AppendUnits(other, TextLength(other), false);
}

void XString::Append(const XString& other) {
    AppendUnits(other.text, other.Count(), false);
}

void XString::Extend(const wchar_t* other) {
    AppendUnits(other, TextLength(other), true);
}

void XString::Extend(const XString& other) {
    AppendUnits(other.text, other.Count(), true);
}

void XString::AppendExact(const wchar_t* other) {
    XString sum(*this);
    sum.Append(other);
    Assign(sum.text, sum.length);
}

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

const char* XString::ToNarrow() {
    const unsigned needed = static_cast<unsigned>(WideToNarrow(text, nullptr, 0)) + 4;
    if (needed != narrowSize) {
        delete[] narrowText;
        narrowText = nullptr;
        narrowSize = 0;
        narrowText = new char[needed];
        narrowSize = needed;
    }
    std::memset(narrowText, 0, narrowSize);
    WideToNarrow(text, narrowText, static_cast<int>(narrowSize));
    return narrowText;
}

XString operator+(const XString& left, const wchar_t* right) {
    XString sum(left);
    sum.Append(right);
    return sum;
}

XString operator+(const XString& left, const XString& right) {
    XString sum(left);
    sum.Append(right);
    return sum;
}

XString operator+(const wchar_t* left, const XString& right) {
    XString sum(left);
    sum.Append(right);
    return sum;
}

bool operator==(const XString& left, const XString& right) noexcept {
    return left.StoredLength() == right.StoredLength() && left.Equals(right.Text());
}

bool operator==(const XString& left, const wchar_t* right) noexcept {
    return left.Equals(right);
}
