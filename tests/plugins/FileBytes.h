// Numbers and texts in the bytes of files that encoders write.
#pragma once

#include "plugins/common/ByteWriter.h"

#include <string_view>

// A number of so many bytes; 0 past the end.
[[nodiscard]] inline std::uint64_t BigAt(const ByteVector& bytes, std::size_t at, std::size_t count) {
    std::uint64_t value = 0;
    for (std::size_t i = at; i < at + count; ++i)
        value = value << 8 | (i < bytes.size() ? bytes[i] : 0);
    return value;
}
[[nodiscard]] inline std::uint64_t LittleAt(const ByteVector& bytes, std::size_t at, std::size_t count) {
    std::uint64_t value = 0;
    for (std::size_t i = at + count; i > at; --i)
        value = value << 8 | (i <= bytes.size() ? bytes[i - 1] : 0);
    return value;
}

[[nodiscard]] inline std::string_view TextOf(const ByteVector& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}
[[nodiscard]] inline bool HasId(const ByteVector& bytes, std::size_t at, std::string_view id) {
    return at <= bytes.size() && TextOf(bytes).substr(at, id.size()) == id;
}
