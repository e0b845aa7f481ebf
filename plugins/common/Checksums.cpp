#include "plugins/common/Checksums.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace {

constexpr std::uint32_t sines[64] = { // 2^32 * |sin(i + 1)|
    0xD76AA478, 0xE8C7B756, 0x242070DB, 0xC1BDCEEE, 0xF57C0FAF, 0x4787C62A, 0xA8304613, 0xFD469501,
    0x698098D8, 0x8B44F7AF, 0xFFFF5BB1, 0x895CD7BE, 0x6B901122, 0xFD987193, 0xA679438E, 0x49B40821,
    0xF61E2562, 0xC040B340, 0x265E5A51, 0xE9B6C7AA, 0xD62F105D, 0x02441453, 0xD8A1E681, 0xE7D3FBC8,
    0x21E1CDE6, 0xC33707D6, 0xF4D50D87, 0x455A14ED, 0xA9E3E905, 0xFCEFA3F8, 0x676F02D9, 0x8D2A4C8A,
    0xFFFA3942, 0x8771F681, 0x6D9D6122, 0xFDE5380C, 0xA4BEEA44, 0x4BDECFA9, 0xF6BB4B60, 0xBEBFBC70,
    0x289B7EC6, 0xEAA127FA, 0xD4EF3085, 0x04881D05, 0xD9D4D039, 0xE6DB99E5, 0x1FA27CF8, 0xC4AC5665,
    0xF4292244, 0x432AFF97, 0xAB9423A7, 0xFC93A039, 0x655B59C3, 0x8F0CCC92, 0xFFEFF47D, 0x85845DD1,
    0x6FA87E4F, 0xFE2CE6E0, 0xA3014314, 0x4E0811A1, 0xF7537E82, 0xBD3AF235, 0x2AD7D2BB, 0xEB86D391};
constexpr int turns[4][4] = {{7, 12, 17, 22}, {5, 9, 14, 20}, {4, 11, 16, 23}, {6, 10, 15, 21}};

constexpr std::array<std::array<std::uint32_t, 256>, 8> MakeCrcTables() {
    std::array<std::array<std::uint32_t, 256>, 8> tables{};
    for (std::uint32_t i = 0; i < 256; ++i) {
        std::uint32_t value = i;
        for (int bit = 0; bit < 8; ++bit)
            value = value >> 1 ^ (value & 1 ? 0xEDB88320 : 0);
        tables[0][i] = value;
    }
    for (std::size_t t = 1; t < 8; ++t)
        for (std::size_t i = 0; i < 256; ++i)
            tables[t][i] = tables[t - 1][i] >> 8 ^ tables[0][tables[t - 1][i] & 0xFF];
    return tables;
}
constexpr auto crcTables = MakeCrcTables(); // table n: what a byte does with n more bytes behind it

} // namespace

void Md5::AddBlock(const unsigned char* block) noexcept {
    std::uint32_t words[16];
    std::memcpy(words, block, sizeof words); // little-endian, as the machine is
    std::uint32_t a = state[0], b = state[1], c = state[2], d = state[3];
    const auto step = [&](std::uint32_t mixed, unsigned i, unsigned word, unsigned round) {
        const std::uint32_t sum = a + mixed + sines[i] + words[word % 16];
        a = d;
        d = c;
        c = b;
        b += std::rotl(sum, turns[round][i % 4]);
    };
    for (unsigned i = 0; i < 16; ++i)
        step(d ^ (b & (c ^ d)), i, i, 0);
    for (unsigned i = 16; i < 32; ++i)
        step(c ^ (d & (b ^ c)), i, 5 * i + 1, 1);
    for (unsigned i = 32; i < 48; ++i)
        step(b ^ c ^ d, i, 3 * i + 5, 2);
    for (unsigned i = 48; i < 64; ++i)
        step(c ^ (b | ~d), i, 7 * i, 3);
    state[0] += a;
    state[1] += b;
    state[2] += c;
    state[3] += d;
}

void Md5::Add(const void* bytes, std::size_t count) noexcept {
    const unsigned char* from = static_cast<const unsigned char*>(bytes);
    std::size_t used = static_cast<std::size_t>(total % sizeof pending);
    total += count;
    while (count > 0) {
        if (used == 0 && count >= sizeof pending) {
            AddBlock(from);
            from += sizeof pending;
            count -= sizeof pending;
            continue;
        }
        const std::size_t part = std::min(count, sizeof pending - used);
        std::memcpy(pending + used, from, part);
        used += part;
        from += part;
        count -= part;
        if (used == sizeof pending) {
            AddBlock(pending);
            used = 0;
        }
    }
}

void Md5::Finish(unsigned char (&digest)[digestBytes]) noexcept {
    static constexpr unsigned char padding[sizeof pending] = {0x80};
    const std::uint64_t bits = total * 8;
    const std::size_t used = static_cast<std::size_t>(total % sizeof pending);
    Add(padding, (used < 56 ? 56 : 120) - used);
    Add(&bits, sizeof bits);
    std::memcpy(digest, state, sizeof digest);
}

void Crc32::Add(const void* bytes, std::size_t count) noexcept {
    const unsigned char* from = static_cast<const unsigned char*>(bytes);
    for (; count >= 8; count -= 8, from += 8) {
        std::uint32_t low, high;
        std::memcpy(&low, from, 4);
        std::memcpy(&high, from + 4, 4);
        low ^= state;
        state = 0;
        for (unsigned i = 0; i < 4; ++i)
            state ^= crcTables[7 - i][low >> (8 * i) & 0xFF] ^ crcTables[3 - i][high >> (8 * i) & 0xFF];
    }
    for (; count > 0; --count)
        state = state >> 8 ^ crcTables[0][(state ^ *from++) & 0xFF];
}

XString HexText(const unsigned char* bytes, std::size_t count) {
    constexpr wchar_t digits[] = L"0123456789abcdef";
    XString text;
    for (std::size_t i = 0; i < count; ++i) {
        const wchar_t pair[] = {digits[bytes[i] >> 4], digits[bytes[i] & 15], 0};
        text.Extend(pair);
    }
    return text;
}
