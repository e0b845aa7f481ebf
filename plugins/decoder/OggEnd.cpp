#include "plugins/decoder/OggEnd.h"

#include <cstring>

namespace {
constexpr std::size_t headBytes = 27;
constexpr unsigned char endOfStream = 4;
} // namespace

bool HasOggEnd(const unsigned char* bytes, std::size_t size) noexcept {
    if (size < headBytes)
        return false;
    for (std::size_t at = size - headBytes + 1; at-- > 0;) {
        const unsigned char* page = bytes + at;
        if (std::memcmp(page, "OggS", 4) != 0 || page[4] != 0)
            continue;
        const std::size_t segments = page[26];
        std::size_t end = at + headBytes + segments;
        for (std::size_t i = 0; i < segments && at + headBytes + i < size; ++i)
            end += page[headBytes + i];
        return end <= size && (page[5] & endOfStream) != 0;
    }
    return false;
}
