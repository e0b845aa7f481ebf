// The sample rates that MPEG audio knows: layer III, and AAC.
#pragma once

#include <cstdint>

// The rate itself if layer III has it, else the next higher one; above 48 kHz the half, the quarter...
// that is a plain fraction of it, so 88200 becomes 44100, else 48000.
[[nodiscard]] std::uint32_t MpegRateFor(std::uint32_t frequency) noexcept;
// The same for AAC, whose highest rates are 88200 and 96000.
[[nodiscard]] std::uint32_t AacRateFor(std::uint32_t frequency) noexcept;
