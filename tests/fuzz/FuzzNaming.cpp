// A template in the first line, then tags as "key=value"; a key behind '+' is an extra element too.
#include "fuzz/FuzzText.h"
#include "naming/NamingEvaluator.h"

namespace {

void AddTag(XString line, XTagList& tags, XStringArray& extras) {
    const bool isExtra = line.CharAt(1) == L'+';
    if (isExtra)
        line.Delete(1, 1);
    const int sign = line.FindChar(L'=');
    const XString key = sign ? line.Left(sign - 1) : line;
    tags.Add(key, sign ? line.From(sign + 1) : XString());
    if (isExtra)
        extras.AddString(key);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    XStringArray lines;
    Split(lines, TextOf(bytes, count), L"\n");
    const XString naming = lines.IsEmpty() ? XString() : lines[0];
    XTagList tags;
    XStringArray extras;
    for (std::int64_t i = 1; i < lines.Count(); ++i)
        AddTag(lines[i], tags, extras);

    (void)EvaluateNaming(naming, tags, &extras);
    (void)HasDynamicItem(naming);
    return 0;
}
