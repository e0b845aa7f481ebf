// A path behind one character of flags: bit 0 enforces the limit, bit 1 says that there is a root.
#include "foundation/XPath.h"
#include "fuzz/FuzzText.h"
#include "naming/OutputPath.h"

namespace {

bool IsLegal(wchar_t ch) {
    for (const wchar_t* illegal = L"\"<>?:/*|"; *illegal; ++illegal)
        if (ch == *illegal)
            return false;
    return ch >= 31;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    if (count == 0)
        return 0;
    const bool enforceLimit = (bytes[0] & 1) != 0;
    const bool hasRoot = (bytes[0] & 2) != 0;
    XString path = TextOf(bytes + 1, count - 1);
    const int root = hasRoot ? RootEnd(path) : 1;
    const int before = path.Count();
    CleanPath(path, enforceLimit, hasRoot);
    Demand(path.Count() <= before + 1, "cleaning adds nothing but a dot for a missing extension");
    for (int i = root; i <= path.Count(); ++i)
        Demand(IsLegal(path.CharAt(i)), "every character behind the root is legal");
    return 0;
}
