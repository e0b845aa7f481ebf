// The source files of the program's run, in order. One object, lent to every form. Portable.
#pragma once

#include "foundation/XArray.h"
#include "host/clFileItem.h"

// Must not grow while a read-ahead thread walks it.
class clFileList {
public:
    clFileItem* Append(); // an empty item at the end; borrowed. No test for duplicates
    // Nothing if a source of that path is there (A-Z folded): null. Walks the whole list.
    clFileItem* AppendUnique(const wchar_t* sourcePath);
    // What AppendUnique gives line by line, without its cost, for lines in the order of
    // CompareNoCase. Lines out of order are only slower. Returns how many were added.
    std::int64_t AppendSortedUnique(const XStringArray& sortedLines);

    [[nodiscard]] std::int64_t Count() const noexcept { return items.Count(); }
    [[nodiscard]] clFileItem& operator[](std::int64_t index) const noexcept { return items[index]; }
    [[nodiscard]] auto begin() const noexcept { return items.begin(); }
    [[nodiscard]] auto end() const noexcept { return items.end(); }
    void Clear() noexcept {
        items.Clear();
        current = nullptr;
    }

    XArray<clFileItem> items;
    clFileItem* current = nullptr; // scratch of whoever walks the list
};
