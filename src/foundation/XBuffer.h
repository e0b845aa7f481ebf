// A growable byte block from the C allocator; exhaustion is reported by results, not exceptions.
#pragma once

#include <cstddef>
#include <cstdint>

// Movable, not copyable. `fill` and `readPos` are positions for callers that stream; <= size.
class XBuffer {
public:
    XBuffer() = default;
    ~XBuffer() { Free(); }
    XBuffer(XBuffer&& other) noexcept;
    XBuffer& operator=(XBuffer&& other) noexcept;
    XBuffer(const XBuffer&) = delete;
    XBuffer& operator=(const XBuffer&) = delete;

    // At least `wanted` bytes. A new block is `wanted + extra` long, and then size says so too;
    // in a block that is large enough only size changes. False if memory ran out: size and
    // capacity are 0 then.
    [[nodiscard]] bool SetSize(std::uint64_t wanted, bool keep, bool zero, std::uint64_t extra = 0) noexcept;
    // Replaces the content and sets fill to count.
    [[nodiscard]] bool Set(const void* bytes, std::uint64_t count) noexcept;
    void Free() noexcept;

    [[nodiscard]] unsigned char* Bytes() const noexcept { return static_cast<unsigned char*>(data); }

    void* data = nullptr;
    std::uint64_t size = 0;     // bytes in use
    std::uint64_t capacity = 0; // bytes allocated
    std::uint64_t fill = 0;
    std::uint64_t readPos = 0;
};
