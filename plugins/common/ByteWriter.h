// Bytes of file headers, put together field by field.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

using ByteVector = std::vector<unsigned char>;

class ByteWriter {
public:
    void Raw(const void* bytes, std::size_t count) {
        const unsigned char* from = static_cast<const unsigned char*>(bytes);
        out.insert(out.end(), from, from + count);
    }
    void Raw(const ByteVector& bytes) { out.insert(out.end(), bytes.begin(), bytes.end()); }
    void Id(const char* id) { Raw(id, 4); }
    void Little(std::uint64_t value, int bytes) {
        for (int i = 0; i < bytes; ++i)
            out.push_back(static_cast<unsigned char>(value >> (8 * i)));
    }
    void Big(std::uint64_t value, int bytes) {
        for (int i = bytes - 1; i >= 0; --i)
            out.push_back(static_cast<unsigned char>(value >> (8 * i)));
    }
    void PadTo(std::size_t multiple) { out.resize((out.size() + multiple - 1) / multiple * multiple, 0); }

    ByteVector out;
};
