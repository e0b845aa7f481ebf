// Storage of XString: construction, assignment, appending, the narrow copy.
#include "foundation/XString.h"

#include "foundation/XCodePage.h"
#include "foundation/XUnits.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstring>
#include <functional>
#include <new>
#include <utility>

namespace {

// A size that an int can't count is a request that no allocator can meet.
wchar_t* AllocateUnits(std::int64_t units) {
    if (units > INT_MAX)
        throw std::bad_alloc();
    return new wchar_t[static_cast<std::size_t>(units)];
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
