// Names of a source's tags that were too many or too large to be read, for the information log.
#pragma once

#include "foundation/XString.h"

#include <array>

class UnreadTags {
public:
    void Add(const XString& name);
    void AddUnnamed() noexcept { hasMore = true; } // those of which not even the name was read
    // "Not all tags of the source could be read: too many or too long are comment, lyrics"; empty if none.
    [[nodiscard]] XString Text() const;

private:
    std::array<XString, 8> names; // the first few, each once; the rest are empty
    bool hasMore = false;
};
