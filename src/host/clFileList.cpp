#include "host/clFileList.h"

#include <algorithm>
#include <vector>

clFileItem* clFileList::Append() {
    current = items.AddNew();
    return current;
}

clFileItem* clFileList::AppendUnique(const wchar_t* sourcePath) {
    const XString path = sourcePath;
    for (const clFileItem& item : items) {
        if (item.sourcePath.EqualsNoCase(path))
            return nullptr;
    }
    clFileItem* item = Append();
    item->sourcePath = path;
    return item;
}

std::int64_t clFileList::AppendSortedUnique(const XStringArray& sortedLines) {
    std::vector<const XString*> present;
    present.reserve(static_cast<std::size_t>(Count()));
    for (const clFileItem& item : items)
        present.push_back(&item.sourcePath);
    std::sort(present.begin(), present.end(),
              [](const XString* a, const XString* b) { return a->CompareNoCase(*b) < 0; });

    const std::int64_t before = Count();
    auto next = present.begin();
    const XString* greatest = nullptr; // of the lines so far
    for (const XString& line : sortedLines) {
        const int order = greatest ? line.CompareNoCase(*greatest) : 1;
        if (order < 0) {
            AppendUnique(line); // out of order: only a walk can tell
            continue;
        }
        if (order == 0)
            continue;
        greatest = &line;
        while (next != present.end() && (*next)->CompareNoCase(line) < 0)
            ++next;
        if (next == present.end() || !(*next)->EqualsNoCase(line))
            Append()->sourcePath = line;
    }
    return Count() - before;
}
