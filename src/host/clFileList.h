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
    // What AppendUnique gives path by path, in this order, at the cost of a sort instead of a walk
    // for each. Returns how many were added.
    std::int64_t AppendAllUnique(const XStringArray& sourcePaths);

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
