// Slots, sorting, and the array of strings with its multi-string image.
#include "foundation/XArray.h"

#include "foundation/XBuffer.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace {

constexpr std::int64_t firstStep = 32;
constexpr std::int64_t longestStep = 500000;
constexpr wchar_t emptyEntry[] = L"[Empty]";

// Hoare's partition around a pivot value; moves i and j until they have crossed.
void Partition(void** items, XPointerSlots::Less less, void* user, std::int64_t& i, std::int64_t& j) {
    const std::int64_t left = i;
    const std::int64_t right = j;
    const void* pivot = items[left + (right - left) / 2];
    while (i <= j) {
        while (i < right && less(items[i], pivot, user))
            ++i;
        while (j > left && less(pivot, items[j], user))
            --j;
        if (i <= j)
            std::swap(items[i++], items[j--]);
    }
}

// Recurses on the smaller part only, so the stack holds at most 64 levels.
void SortRange(void** items, XPointerSlots::Less less, void* user, std::int64_t left, std::int64_t right) {
    while (left < right) {
        std::int64_t i = left;
        std::int64_t j = right;
        Partition(items, less, user, i, j);
        if (j - left < right - i) {
            SortRange(items, less, user, left, j);
            left = i;
        } else {
            SortRange(items, less, user, i, right);
            right = j;
        }
    }
}

// Code units, a shorter prefix first.
bool IsLess(const wchar_t* a, const wchar_t* b) noexcept {
    while (*a && *a == *b) {
        ++a;
        ++b;
    }
    return *a < *b;
}

const wchar_t* EntryText(const XString& element) noexcept {
    return element.IsEmpty() ? emptyEntry : element.Text();
}

XString Piece(const wchar_t* from, const wchar_t* end) {
    XString piece;
    piece.Assign(from, static_cast<int>(end - from) + 1);
    return piece;
}

} // namespace

XPointerSlots::XPointerSlots() noexcept : items(inlineItems) {}

XPointerSlots::~XPointerSlots() {
    ClearSlots();
}

void XPointerSlots::Grow() {
    void** block = new void*[static_cast<std::size_t>(capacity + step)];
    std::copy(items, items + capacity, block);
    if (items != inlineItems)
        delete[] items;
    items = block;
    capacity += step;
    step = std::min(step * 2, longestStep);
}

void XPointerSlots::Add(void* p) {
    if (count == capacity)
        Grow();
    items[count++] = p;
}

void XPointerSlots::InsertAt(std::int64_t index, void* p) {
    if (index < 0 || index > count)
        index = count;
    if (count == capacity)
        Grow();
    std::copy_backward(items + index, items + count, items + count + 1);
    items[index] = p;
    ++count;
}

void XPointerSlots::RemoveAt(std::int64_t index) noexcept {
    if (index < 0 || index >= count)
        return;
    std::copy(items + index + 1, items + count, items + index);
    --count;
}

void XPointerSlots::ClearSlots() noexcept {
    if (items != inlineItems)
        delete[] items;
    items = nullptr;
    count = 0;
    capacity = 0;
    step = firstStep;
}

void XPointerSlots::Sort(Less less, void* user, std::int64_t left, std::int64_t right) {
    if (left == -1)
        left = 0;
    if (right == -1)
        right = count - 1;
    if (left >= 0 && right < count)
        SortRange(items, less, user, left, right);
}

XString* XStringArray::AddString(const wchar_t* text, std::uint64_t userValue) {
    XString* element = AddNew(text);
    element->userValue = userValue;
    return element;
}

XString* XStringArray::InsertString(std::int64_t index, const wchar_t* text) {
    auto* element = new XString(text);
    InsertAt(index, element);
    return element;
}

bool XStringArray::Contains(const wchar_t* text, bool ignoreCase) const noexcept {
    for (const XString& element : *this)
        if (ignoreCase ? element.EqualsNoCase(text) : element.Equals(text))
            return true;
    return false;
}

void XStringArray::CopyFrom(const XStringArray& other) {
    if (this == &other)
        return;
    Clear();
    for (const XString& element : other)
        AddNew(element);
}

void XStringArray::SortTexts(bool ignoreCase) {
    if (ignoreCase)
        Sort([](const XString& a, const XString& b) { return a.CompareNoCase(b) == -1; });
    else
        Sort([](const XString& a, const XString& b) { return IsLess(a, b); });
}

bool XStringArray::JoinMulti(XBuffer& buffer) const {
    std::uint64_t units = 1;
    for (const XString& element : *this)
        units += static_cast<std::uint64_t>(TextLength(EntryText(element))) + 1;
    units = std::max<std::uint64_t>(units, 2);
    if (!buffer.SetSize(units * sizeof(wchar_t), false, true))
        return false;
    unsigned char* to = buffer.Bytes();
    for (const XString& element : *this) {
        const wchar_t* text = EntryText(element);
        const auto bytes = static_cast<std::size_t>(TextLength(text)) * sizeof(wchar_t);
        std::memcpy(to, text, bytes);
        to += bytes + sizeof(wchar_t);
    }
    return true;
}

void XStringArray::SplitMulti(const wchar_t* text, std::int64_t byteCount) {
    Clear();
    if (!text || byteCount <= 0)
        return;
    const wchar_t* const limit = text + byteCount / static_cast<std::int64_t>(sizeof(wchar_t));
    while (text < limit && *text) {
        const wchar_t* end = std::find(text, limit, L'\0');
        XString* element = AddNew(Piece(text, end));
        if (element->Equals(emptyEntry))
            element->Clear();
        text = end + 1;
    }
}

void SplitLines(const wchar_t* text, XStringArray& out) {
    out.Clear();
    while (text && *text) {
        const wchar_t* end = text;
        while (*end && *end != L'\r')
            ++end;
        out.AddNew(Piece(text, end));
        text = end;
        if (*text)
            ++text;
        while (*text == L'\n' && *end)
            ++text;
    }
}

void Split(XStringArray& out, const wchar_t* text, const wchar_t* delimiter) {
    const int skip = TextLength(delimiter);
    if (!text || !*text || skip == 0)
        return;
    const XString whole(text);
    int from = 1;
    for (int at = whole.Find(delimiter); at > 0; at = whole.Find(delimiter, from)) {
        out.AddNew(whole.Mid(from, at - 1));
        from = at + skip;
    }
    out.AddNew(whole.From(from));
}
