// One pass over the bytes of a list file.
#include "host/ListFile.h"

#include <cstring>
#include <vector>

namespace {
constexpr wchar_t byteOrderMark = 0xFEFF;
}

bool ParseListFile(const void* bytes, std::uint64_t byteCount, XStringArray& lines) {
    const auto* data = static_cast<const unsigned char*>(bytes);
    std::vector<wchar_t> line;
    bool hasLine = false;
    const auto endLine = [&] {
        hasLine = true;
        if (line.empty())
            return;
        line.push_back(0);
        lines.AddString(line.data());
        line.clear();
    };
    for (std::uint64_t at = 0; at + sizeof(wchar_t) <= byteCount; at += sizeof(wchar_t)) {
        wchar_t unit;
        std::memcpy(&unit, data + at, sizeof(unit));
        // CR LF needs no rule of its own: the line between the two is empty.
        if (unit == L'\r' || unit == L'\n')
            endLine();
        else if (unit != 0 && (unit != byteOrderMark || !line.empty()))
            line.push_back(unit);
    }
    if (!line.empty())
        endLine();
    return hasLine;
}
