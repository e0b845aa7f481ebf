// Checksums of audio: MD5 (RFC 1321) and CRC-32 (ISO 3309, as zip files have it).
#pragma once

#include "foundation/XString.h"

#include <cstddef>
#include <cstdint>

class Md5 {
public:
    static constexpr std::size_t digestBytes = 16;

    void Add(const void* bytes, std::size_t count) noexcept;
    // Nothing can be added behind it.
    void Finish(unsigned char (&digest)[digestBytes]) noexcept;

private:
    void AddBlock(const unsigned char* block) noexcept;

    std::uint32_t state[4] = {0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476};
    std::uint64_t total = 0; // bytes
    unsigned char pending[64] = {};
};

class Crc32 {
public:
    void Add(const void* bytes, std::size_t count) noexcept;
    [[nodiscard]] std::uint32_t Value() const noexcept { return ~state; }

private:
    std::uint32_t state = 0xFFFFFFFF;
};

// Two digits per byte, in lower case as tools for checksums print them.
[[nodiscard]] XString HexText(const unsigned char* bytes, std::size_t count);
