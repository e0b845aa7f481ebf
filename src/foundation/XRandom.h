// MT19937 (Matsumoto, Nishimura 1998), the generator behind temporary names. Portable.
#pragma once

#include <cstdint>

class XMersenneTwister {
public:
    explicit XMersenneTwister(std::uint32_t seed) noexcept { Seed(seed); }
    void Seed(std::uint32_t seed) noexcept;
    [[nodiscard]] std::uint32_t Next() noexcept;
    // 0 to range - 1; the top of the 32-bit output scaled to the range. 0 for range 0.
    [[nodiscard]] std::uint32_t Below(std::uint32_t range) noexcept;

private:
    static constexpr int stateWords = 624;
    std::uint32_t state[stateWords];
    int next = stateWords;
};

// The program-wide generator, seeded once from clock and counters, guarded by a lock. Windows only.
[[nodiscard]] std::uint32_t RandomBelow(std::uint32_t range) noexcept;
