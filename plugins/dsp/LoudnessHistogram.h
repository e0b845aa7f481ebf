// How loud a programme is as a whole, after EBU R128 and ITU-R BS.1770-4: the distribution of its blocks.
// Those of several files can be merged into one of all of them. Portable.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

// Counts gating blocks (400 ms, a new one every 100 ms) in bins of 0.01 LU from the absolute gate on.
class LoudnessHistogram {
public:
    static constexpr double floorLufs = -70; // the absolute gate: quieter blocks don't count
    static constexpr double binLu = 0.01;
    static constexpr int binCount = 11000; // up to +40 LUFS; louder blocks count there

    // One block by its loudness in LUFS; what is no number, or below the gate, is left out.
    void AddBlock(double lufs) { AddBlocks(BinOf(lufs), 1); }
    void Merge(const LoudnessHistogram& other);
    // Integrated loudness in LUFS, within 0.005 LU: the mean energy of the blocks that are at most 10 LU
    // below the mean of all. Nothing for silence and for what is shorter than a block.
    [[nodiscard]] std::optional<double> Integrated() const;

    // To keep it and to bring it back: `bin` is 0 to binCount - 1; others are passed over.
    [[nodiscard]] std::uint64_t Blocks(int bin) const noexcept;
    void AddBlocks(int bin, std::uint64_t blocks);

private:
    [[nodiscard]] static int BinOf(double lufs) noexcept;   // -1: none
    [[nodiscard]] double MeanFrom(std::size_t first) const; // energy; 0 without a block

    std::vector<std::uint64_t> counts; // empty before the first block
};
