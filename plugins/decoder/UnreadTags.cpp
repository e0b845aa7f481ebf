#include "plugins/decoder/UnreadTags.h"

namespace {

constexpr int mostUnits = 80; // of a name, which may be hostile

} // namespace

void UnreadTags::Add(const XString& name) {
    const XString shortName = name.Left(mostUnits);
    for (XString& known : names) {
        if (known.IsEmpty())
            known = shortName;
        if (known == shortName)
            return;
    }
    hasMore = true;
}

XString UnreadTags::Text() const {
    XString text;
    for (const XString& name : names) {
        if (!text.IsEmpty() && !name.IsEmpty())
            text.Extend(L", ");
        text.Extend(name);
    }
    if (hasMore)
        text.Extend(text.IsEmpty() ? L"several" : L" and others");
    if (text.IsEmpty())
        return text;
    return L"Not all tags of the source could be read: too many or too long are " + text;
}
