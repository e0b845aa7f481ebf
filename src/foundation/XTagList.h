// Ordered records of key, value and blob with a binary image: tags and properties as they travel
// between plug-ins, threads, effects and the naming language.
#pragma once

#include "foundation/XArray.h"
#include "foundation/XBuffer.h"

struct XTagItem {
    XString key;
    XString value;
    XBuffer blob; // such as cover art; empty when absent
};

// Image, little-endian: u32 record count; then per record u32 size including itself, key and value
// as terminated UTF-16, and the rest of the record as blob.
class XTagList {
public:
    XTagItem* Add(const wchar_t* key, const wchar_t* value); // always appends; borrowed
    XTagItem* Find(const wchar_t* key);                      // A-Z folded; null if none
    [[nodiscard]] XString Get(const wchar_t* key);           // missing and empty look alike
    void Merge(const XTagList& other);                       // records present here win
    void RemoveAt(std::int64_t index) noexcept {
        items.DeleteAt(index);
        current = nullptr;
    }
    void Clear() noexcept {
        items.Clear();
        current = nullptr;
    }
    [[nodiscard]] std::int64_t Count() const noexcept { return items.Count(); }
    [[nodiscard]] XTagItem& operator[](std::int64_t index) const noexcept { return items[index]; }

    // False if memory ran out.
    [[nodiscard]] bool Serialize(XBuffer& buffer) const;
    // Appends what the image holds; a damaged one yields fewer or shorter records, never an error.
    void Deserialize(const void* bytes, std::int64_t size);

    XArray<XTagItem> items;
    XTagItem* current = nullptr; // last added or found
};
