// Text tags by TagLib. This file keeps TagLib's headers away from the others.
#include "foundation/XPath.h"
#include "plugins/decoder/Tags.h"

#include <taglib/fileref.h>
#include <taglib/tpropertymap.h>

static_assert(sizeof(wchar_t) == 2, "TagLib's texts are copied as UTF-16");

namespace {
// What TagLib hands out lives only as long as its own string.
XString ToText(const TagLib::String& text) {
    return XString(text.toCWString());
}

bool AddAll(const XString& path, XTagList& tags) {
    const XString prefixed = LongPath(path, longFileLimit);
    const TagLib::FileRef file(TagLib::FileName(prefixed.Text()), false);
    if (file.isNull() || !file.file() || !file.file()->isValid())
        return false;
    const TagLib::PropertyMap map = file.file()->properties();
    for (const auto& [key, values] : map)
        for (const TagLib::String& value : values)
            AddTag(tags, ToText(key), ToText(value));
    return tags.Count() > 0;
}
} // namespace

// A damaged tag costs the tags, not the audio.
bool AddTagLibTags(const XString& path, XTagList& tags) {
    try {
        return AddAll(path, tags);
    } catch (...) {
        tags.Clear();
        return false;
    }
}
