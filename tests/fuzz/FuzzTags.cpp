// An image of tags as its bytes; or, behind a '#', lines "key=value" that an image is made of and lines
// "@offset=value" that damage it.
#include "foundation/XTagList.h"
#include "fuzz/FuzzText.h"

namespace {

bool AreEqual(const XTagList& a, const XTagList& b) {
    if (a.Count() != b.Count())
        return false;
    for (std::int64_t i = 0; i < a.Count(); ++i)
        if (!(a[i].key == b[i].key) || !(a[i].value == b[i].value) || a[i].blob.size != b[i].blob.size)
            return false;
    return true;
}

// What was read is written and read again as the same records.
void ReadAndReturn(const void* bytes, std::int64_t size) {
    XTagList first;
    first.Deserialize(bytes, size);
    XBuffer image;
    Demand(first.Serialize(image), "a list that was read can be written");
    XTagList second;
    second.Deserialize(image.data, static_cast<std::int64_t>(image.size));
    Demand(AreEqual(first, second), "a written list reads as it was");
    XTagList merged;
    merged.Merge(first);
    for (const XTagItem& item : first.items)
        Demand(merged.Find(item.key) != nullptr, "a merged list has every key");
}

void ReadDamaged(const XString& text) {
    XStringArray lines;
    Split(lines, text, L"\n");
    XTagList list;
    for (const XString& line : lines)
        if (line.CharAt(1) != L'@')
            list.Add(line.Left(line.FindChar(L'=') - 1), line.From(line.FindChar(L'=') + 1));
    XBuffer image;
    Demand(list.Serialize(image), "a list of texts can be written");
    for (const XString& line : lines) {
        const auto offset = static_cast<std::uint64_t>(line.From(2).ToInt());
        if (line.CharAt(1) == L'@' && offset < image.size)
            image.Bytes()[offset] = static_cast<unsigned char>(line.From(line.FindChar(L'=') + 1).ToInt());
    }
    ReadAndReturn(image.data, static_cast<std::int64_t>(image.size));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    if (count > 0 && bytes[0] == '#')
        ReadDamaged(TextOf(bytes + 1, count - 1));
    else
        ReadAndReturn(bytes, static_cast<std::int64_t>(count));
    return 0;
}
