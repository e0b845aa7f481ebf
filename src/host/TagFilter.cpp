#include "host/TagFilter.h"

#include "foundation/XTagList.h"

#include <cstring>

bool FilterTagImage(const void* image, std::uint64_t size, XBuffer& out) {
    // A list of that many records is damage, and would cost many times its image in memory.
    std::uint32_t count = 0;
    if (size < sizeof(count))
        return false;
    std::memcpy(&count, image, sizeof(count));
    if (count > tagCountLimit)
        return false;
    XTagList tags;
    tags.Deserialize(image, static_cast<std::int64_t>(size));
    for (std::int64_t i = tags.Count() - 1; i >= 0; --i) {
        const XTagItem& tag = tags[i];
        const auto characters = static_cast<std::uint64_t>(tag.key.Count()) + tag.value.Count();
        if (2 * characters + tag.blob.size > tagRecordLimit)
            tags.RemoveAt(i);
    }
    return tags.Serialize(out);
}
