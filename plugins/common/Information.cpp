#include "plugins/common/Information.h"

#include "plugins/common/TagText.h"

void LeftOutTags::Add(const XTagItem& item) {
    if (item.value.IsEmpty() && item.blob.size == 0)
        return;
    pictures += IsPicture(item);
    const XString name = IsPicture(item) ? XString(L"cover art") : item.key;
    if (!name.IsEmpty() && !names.Contains(name, true))
        names.AddString(name);
}

bool LeftOutTags::Has(const XTagItem& item) const {
    return names.Contains(item.key, true);
}

XString LeftOutTags::Text(const wchar_t* target) const {
    XString text;
    for (const XString& name : names)
        text += (text.IsEmpty() ? XString() : XString(L", ")) + name;
    return text.IsEmpty() ? text : XString(target) + L" can't hold these tags of the source: " + text;
}

XString ClippedText(std::uint64_t samples) {
    if (samples == 0)
        return XString();
    return UnsignedText(samples) + (samples == 1 ? L" sample above full scale was clipped"
                                                 : L" samples above full scale were clipped");
}

XString RateText(const wchar_t* target, std::uint32_t from, std::uint32_t to) {
    return XString(target) + L" can't hold " + UnsignedText(from) + L" Hz: the audio was brought to " +
           UnsignedText(to) + L" Hz";
}
