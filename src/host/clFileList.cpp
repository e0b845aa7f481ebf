#include "host/clFileList.h"

#include <algorithm>
#include <vector>

namespace {

struct Entry {
    const XString* path;
    std::uint32_t hash;  // of the folded path: most comparisons end at it
    std::int64_t source; // place among the new paths; -1: in the list already
};

std::uint32_t FoldedHash(const XString& path) noexcept {
    std::uint32_t hash = 2166136261U; // FNV-1a over units
    for (const wchar_t* unit = path.Text(); *unit; ++unit) {
        const std::uint32_t folded = *unit >= L'A' && *unit <= L'Z' ? *unit + (L'a' - L'A') : *unit;
        hash = (hash ^ folded) * 16777619U;
    }
    return hash;
}

// Equal paths stand together, the one that came first at their head.
bool SortsBefore(const Entry& a, const Entry& b) noexcept {
    if (a.hash != b.hash)
        return a.hash < b.hash;
    const int order = a.path->CompareNoCase(*b.path);
    return order != 0 ? order < 0 : a.source < b.source;
}

} // namespace

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

std::int64_t clFileList::AppendAllUnique(const XStringArray& sourcePaths) {
    std::vector<Entry> entries;
    entries.reserve(static_cast<std::size_t>(Count() + sourcePaths.Count()));
    for (const clFileItem& item : items)
        entries.push_back({&item.sourcePath, FoldedHash(item.sourcePath), -1});
    for (std::int64_t i = 0; i < sourcePaths.Count(); ++i)
        entries.push_back({&sourcePaths[i], FoldedHash(sourcePaths[i]), i});
    std::sort(entries.begin(), entries.end(), SortsBefore);

    std::vector<bool> isNew(static_cast<std::size_t>(sourcePaths.Count()));
    const Entry* head = nullptr;
    for (const Entry& entry : entries) {
        if (head && head->hash == entry.hash && head->path->EqualsNoCase(*entry.path))
            continue;
        head = &entry;
        if (entry.source >= 0)
            isNew[static_cast<std::size_t>(entry.source)] = true;
    }
    const std::int64_t before = Count();
    for (std::int64_t i = 0; i < sourcePaths.Count(); ++i) {
        if (isNew[static_cast<std::size_t>(i)])
            Append()->sourcePath = sourcePaths[i];
    }
    return Count() - before;
}
