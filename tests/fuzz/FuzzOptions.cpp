// A command line.
#include "foundation/XKeyValueList.h"
#include "fuzz/FuzzText.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    const XString text = TextOf(bytes, count);
    const XKeyValueList list(text);
    Demand(list.keys.Count() == list.values.Count(), "keys and values come in pairs");
    std::int64_t units = 0;
    XString value;
    for (const XString& key : list.keys) {
        units += key.Count();
        Demand(list.Has(key) && list.GetValue(key, value), "what was read is found");
    }
    for (const XString& text : list.values)
        units += text.Count();
    Demand(units <= text.Count(), "keys and values are pieces of the text");
    Demand(CommandLineTail(text).Count() <= text.Count(), "a tail is a piece of the text");
    XKeyValueList options;
    options.ParseCommandLine(text);
    for (int start = -2; start <= text.Count() + 2 && start < 8; ++start)
        options.Parse(text, start);
    return 0;
}
