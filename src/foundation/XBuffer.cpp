// A growable byte block; see the header for how exhaustion is told.
#include "foundation/XBuffer.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <utility>

XBuffer::XBuffer(XBuffer&& other) noexcept {
    *this = std::move(other);
}

XBuffer& XBuffer::operator=(XBuffer&& other) noexcept {
    if (this == &other)
        return *this;
    Free();
    data = std::exchange(other.data, nullptr);
    size = std::exchange(other.size, 0);
    capacity = std::exchange(other.capacity, 0);
    fill = std::exchange(other.fill, 0);
    readPos = std::exchange(other.readPos, 0);
    return *this;
}

bool XBuffer::SetSize(std::uint64_t wanted, bool keep, bool zero, std::uint64_t extra) noexcept {
    if (capacity == 0 || capacity < wanted) {
        const bool isCountable = wanted <= PTRDIFF_MAX && extra <= PTRDIFF_MAX - wanted;
        const std::uint64_t bytes = isCountable ? std::max<std::uint64_t>(wanted + extra, 1) : 0;
        void* block = isCountable ? std::malloc(bytes) : nullptr;
        if (block && keep && data)
            std::memcpy(block, data, std::min(size, bytes));
        std::free(data);
        data = block;
        size = block ? wanted + extra : 0;
        capacity = block ? bytes : 0;
    } else {
        size = wanted;
    }
    if (zero && data)
        std::memset(data, 0, size);
    fill = std::min(fill, size);
    readPos = std::min(readPos, size);
    return data != nullptr;
}

bool XBuffer::Set(const void* bytes, std::uint64_t count) noexcept {
    if (!bytes && count > 0)
        return false;
    if (!SetSize(count, false, false))
        return false;
    if (count > 0)
        std::memmove(data, bytes, count);
    fill = count;
    return true;
}

void XBuffer::Free() noexcept {
    std::free(data);
    data = nullptr;
    size = capacity = fill = readPos = 0;
}
