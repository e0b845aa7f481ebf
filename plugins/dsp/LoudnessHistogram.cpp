#include "plugins/dsp/LoudnessHistogram.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double relativeGate = -10; // LU
// Loudness is -0.691 + 10 lg energy; the constant cancels out, as energies only come from loudness.
double EnergyOf(double lufs) {
    return std::pow(10.0, lufs / 10);
}
double MiddleOf(std::size_t bin) {
    return LoudnessHistogram::floorLufs + (static_cast<double>(bin) + 0.5) * LoudnessHistogram::binLu;
}

} // namespace

int LoudnessHistogram::BinOf(double lufs) noexcept {
    if (!(lufs >= floorLufs)) // not a number, too
        return -1;
    return static_cast<int>(std::min((lufs - floorLufs) / binLu, binCount - 1.0));
}

std::uint64_t LoudnessHistogram::Blocks(int bin) const noexcept {
    return bin < 0 || counts.size() <= static_cast<std::size_t>(bin) ? 0
                                                                     : counts[static_cast<std::size_t>(bin)];
}

void LoudnessHistogram::AddBlocks(int bin, std::uint64_t blocks) {
    if (bin < 0 || bin >= binCount || blocks == 0)
        return;
    counts.resize(binCount);
    counts[static_cast<std::size_t>(bin)] += blocks;
}

void LoudnessHistogram::Merge(const LoudnessHistogram& other) {
    for (std::size_t bin = 0; bin < other.counts.size(); ++bin)
        AddBlocks(static_cast<int>(bin), other.counts[bin]);
}

double LoudnessHistogram::MeanFrom(std::size_t first) const {
    double sum = 0, blocks = 0;
    for (std::size_t bin = first; bin < counts.size(); ++bin) {
        if (counts[bin] == 0)
            continue;
        sum += static_cast<double>(counts[bin]) * EnergyOf(MiddleOf(bin));
        blocks += static_cast<double>(counts[bin]);
    }
    return blocks > 0 ? sum / blocks : 0;
}

std::optional<double> LoudnessHistogram::Integrated() const {
    const double all = MeanFrom(0);
    if (all <= 0)
        return std::nullopt;
    const int gate = BinOf(10 * std::log10(all) + relativeGate);
    return 10 * std::log10(MeanFrom(static_cast<std::size_t>(std::max(gate, 0))));
}
