// Whether an icon or cursor file stays within its own bytes: picture loaders follow what it says.
#pragma once

#include <cstdint>

// True for a file that opens like an icon (two zero bytes) and whose directory or pictures reach
// behind its end or make no sense; false for a sound icon and for every other kind of file.
[[nodiscard]] bool IsBrokenIconFile(const unsigned char* bytes, std::uint64_t sizeBytes) noexcept;
