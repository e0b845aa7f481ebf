// The generator's recurrence and tempering as published, with the initialisation of 2002.
#include "foundation/XRandom.h"

void XMersenneTwister::Seed(std::uint32_t seed) noexcept {
    state[0] = seed;
    for (std::uint32_t i = 1; i < stateWords; ++i)
        state[i] = 1812433253u * (state[i - 1] ^ state[i - 1] >> 30) + i;
    next = stateWords;
}

std::uint32_t XMersenneTwister::Next() noexcept {
    constexpr int distance = 397;
    if (next == stateWords) {
        for (int i = 0; i < stateWords; ++i) {
            const std::uint32_t y = (state[i] & 0x80000000u) | (state[(i + 1) % stateWords] & 0x7FFFFFFFu);
            state[i] = state[(i + distance) % stateWords] ^ y >> 1 ^ (y & 1 ? 0x9908B0DFu : 0);
        }
        next = 0;
    }
    std::uint32_t y = state[next++];
    y ^= y >> 11;
    y ^= y << 7 & 0x9D2C5680u;
    y ^= y << 15 & 0xEFC60000u;
    return y ^ y >> 18;
}

std::uint32_t XMersenneTwister::Below(std::uint32_t range) noexcept {
    return static_cast<std::uint32_t>(static_cast<std::uint64_t>(Next()) * range >> 32);
}
