// Whether an Ogg file ends as its writer ended it (RFC 3533): with a whole page that bears the mark of
// the end. Portable; the bytes come from anywhere and may be damaged.
#pragma once

#include <cstddef>

inline constexpr std::size_t oggEndBytes = 66000; // of a file's end: more than the largest page

// `bytes` are the last ones of the file. False for an Ogg file that was cut off, or recorded from a
// stream that went on.
[[nodiscard]] bool HasOggEnd(const unsigned char* bytes, std::size_t size) noexcept;
