// Text tags by TagLib. This file keeps TagLib's headers away from the others.
#include "foundation/XPath.h"
#include "plugins/common/TagKeys.h"
#include "plugins/decoder/Tags.h"

#include <taglib/fileref.h>
#include <taglib/mp4file.h>
#include <taglib/tpropertymap.h>

static_assert(sizeof(wchar_t) == 2, "TagLib's texts are copied as UTF-16");

namespace {
// What TagLib hands out lives only as long as its own string.
XString ToText(const TagLib::String& text) {
    return XString(text.toCWString());
}

// Items of M4A files that bring their own name, which TagLib's list of properties leaves out.
void AddFreeItems(const TagLib::MP4::File& file, const TagLib::StringList& names, XTagList& tags) {
    for (const TagLib::String& name : names)
        if (name.startsWith("----:") && file.tag()) {
            const XString whole = ToText(name);
            for (const TagLib::String& value : file.tag()->item(name).toStringList())
                AddTag(tags, whole.From(whole.FindChar(L':', 6) + 1), ToText(value));
        }
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
    if (const auto* mp4 = dynamic_cast<const TagLib::MP4::File*>(file.file()))
        AddFreeItems(*mp4, map.unsupportedData(), tags);
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
