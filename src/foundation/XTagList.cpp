// Tag records and their binary image. Images come from other processes: no size is believed.
#include "foundation/XTagList.h"

#include <cstring>

namespace {

constexpr std::int64_t sizeField = 4; // bytes of the count and of each record's size

// Little-endian like the machines that this runs on.
std::int32_t ReadInt32(const unsigned char* from) noexcept {
    std::int32_t value;
    std::memcpy(&value, from, sizeof value);
    return value;
}

unsigned char* Put(unsigned char* to, const void* from, std::uint64_t bytes) noexcept {
    if (bytes > 0)
        std::memcpy(to, from, bytes);
    return to + bytes;
}

std::uint64_t TextBytes(const XString& text) noexcept {
    return static_cast<std::uint64_t>(text.StoredLength()) * sizeof(wchar_t);
}

std::uint64_t RecordBytes(const XTagItem& item) noexcept {
    return sizeField + TextBytes(item.key) + TextBytes(item.value) + item.blob.size;
}

// Reads units up to a terminator or the end of the record and moves behind them. False if the
// terminator is missing.
bool TakeText(const unsigned char*& at, const unsigned char* end, XString& out) {
    const std::int64_t units = (end - at) / 2;
    std::int64_t n = 0;
    while (n < units && (at[2 * n] || at[2 * n + 1]))
        ++n;
    out.SetLength(static_cast<int>(n));
    std::memcpy(out.Buffer(), at, static_cast<std::size_t>(n) * sizeof(wchar_t));
    const bool isTerminated = n < units;
    at += 2 * (n + (isTerminated ? 1 : 0));
    return isTerminated;
}

// False if the record was cut short; it keeps what was read.
bool TakeRecord(const unsigned char* at, const unsigned char* end, XTagItem& item) {
    if (at >= end || !TakeText(at, end, item.key))
        return false;
    if (at >= end || !TakeText(at, end, item.value))
        return false;
    return at == end || item.blob.Set(at, static_cast<std::uint64_t>(end - at));
}

} // namespace

XTagItem* XTagList::Add(const wchar_t* key, const wchar_t* value) {
    current = items.AddNew();
    current->key = key;
    current->value = value;
    return current;
}

XTagItem* XTagList::Find(const wchar_t* key) {
    current = nullptr;
    if (!key)
        return nullptr;
    for (XTagItem& item : items)
        if (item.key.EqualsNoCase(key))
            return current = &item;
    return nullptr;
}

XString XTagList::Get(const wchar_t* key) {
    const XTagItem* item = Find(key);
    return item ? item->value : XString();
}

void XTagList::Merge(const XTagList& other) {
    if (this == &other)
        return;
    for (const XTagItem& theirs : other.items) {
        if (Find(theirs.key))
            continue;
        XTagItem* mine = Add(theirs.key, theirs.value);
        if (theirs.blob.size > 0 && !mine->blob.Set(theirs.blob.data, theirs.blob.size))
            mine->blob.Free();
    }
}

bool XTagList::Serialize(XBuffer& buffer) const {
    std::uint64_t bytes = sizeField;
    for (const XTagItem& item : items) {
        if (RecordBytes(item) > INT32_MAX) // a reader would take the size for a negative one
            return false;
        bytes += RecordBytes(item);
    }
    if (items.Count() > INT32_MAX || !buffer.SetSize(bytes, false, false))
        return false;
    const auto count = static_cast<std::uint32_t>(items.Count());
    unsigned char* to = Put(buffer.Bytes(), &count, sizeof count);
    for (const XTagItem& item : items) {
        const auto recordBytes = static_cast<std::uint32_t>(RecordBytes(item));
        to = Put(to, &recordBytes, sizeof recordBytes);
        to = Put(to, item.key.Text(), TextBytes(item.key));
        to = Put(to, item.value.Text(), TextBytes(item.value));
        to = Put(to, item.blob.data, item.blob.size);
    }
    return true;
}

void XTagList::Deserialize(const void* bytes, std::int64_t size) {
    if (!bytes || size <= sizeField)
        return;
    const auto* at = static_cast<const unsigned char*>(bytes);
    const unsigned char* const end = at + size;
    const std::int32_t count = ReadInt32(at);
    at += sizeField;
    for (std::int32_t i = 0; i < count && end - at >= sizeField; ++i) {
        const std::int32_t recordBytes = ReadInt32(at);
        if (recordBytes < 0 || recordBytes > end - at)
            return;
        current = items.AddNew();
        if (!TakeRecord(at + sizeField, at + recordBytes, *current))
            return;
        at += recordBytes;
    }
}
