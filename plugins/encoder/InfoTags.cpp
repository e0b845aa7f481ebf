#include "plugins/encoder/InfoTags.h"

#include "plugins/common/TagText.h"

std::vector<InfoTag> ReadInfoTags(const XTagList& tags, LeftOutTags& leftOut) {
    std::vector<InfoTag> result;
    for (std::int64_t i = 0; i < tags.Count(); ++i) {
        const XTagItem& item = tags[i];
        const TagName* name = FindTagName(item.key);
        if (!name || !name->info) {
            leftOut.Add(item);
            continue;
        }
        XStringArray values;
        SplitValues(item, values);
        XString all;
        for (const XString& value : values) {
            if (!all.IsEmpty())
                all.Extend(L"; ");
            all.Extend(value);
        }
        if (!all.IsEmpty())
            result.push_back({name->info, all});
    }
    return result;
}
