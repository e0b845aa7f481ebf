// Sample arithmetic: depths, kinds and packing. Integers are right-aligned int32, floats have full
// scale at 1.0; `count` counts samples, not frames.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

// Full scale of `bits` becomes 1.0.
void IntToFloat(const std::int32_t* in, float* out, std::size_t count, int bits) noexcept;
// To the top of the 32 bits, where some encoders want them.
void AlignLeft(const std::int32_t* in, std::int32_t* out, std::size_t count, int bits) noexcept;
// The bytes of a sample in files. In wave files one byte alone is unsigned, with 128 as silence.
enum class SampleOrder { wave, little, big };
// `bytes` 1 to 4 per sample; float samples go with 4.
void PackSamples(const void* in, unsigned char* out, std::size_t count, int bytes,
                 SampleOrder order) noexcept;

// Brings samples of one kind and depth to an integer depth, with clipping. Where depth is lost it
// rounds with triangular dither (TPDF, 2 LSB wide), but only from the first sample on that does not
// fit the new depth: audio that was only padded to a greater depth comes back bit by bit.
class DepthChanger {
public:
    void Open(bool fromFloat, int fromBits, int toBits) noexcept;
    // False when samples of the source are already what is wanted, and Convert need not be called.
    [[nodiscard]] bool IsNeeded() const noexcept { return isFloat || sourceBits != targetBits; }
    // The result lives until the next call.
    [[nodiscard]] const std::int32_t* Convert(const void* samples, std::size_t count);
    // Float samples above full scale since Open.
    [[nodiscard]] std::uint64_t Clipped() const noexcept { return clipped; }
    // Something since Open did not fit the new depth.
    [[nodiscard]] bool HasRounded() const noexcept { return hasRounded; }

private:
    void FromFloat(const float* in, std::size_t count) noexcept;
    void Widen(const std::int32_t* in, std::size_t count) noexcept;
    void Narrow(const std::int32_t* in, std::size_t count) noexcept;
    [[nodiscard]] std::uint32_t NextRandom() noexcept;

    bool isFloat = false;
    int sourceBits = 16;
    int targetBits = 16;
    bool dithers = false;
    bool hasRounded = false;
    std::uint64_t clipped = 0;
    std::uint32_t random = 0x2545F491; // the same for every file: equal input, equal output
    std::vector<std::int32_t> result;
};
