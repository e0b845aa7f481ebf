// The sample rates that MPEG audio layer III knows.
#pragma once

#include <cstdint>

// The rate itself if layer III has it, else the next higher one; above 48 kHz the half, the quarter...
// that is a plain fraction of it, so 88200 becomes 44100, else 48000.
[[nodiscard]] std::uint32_t MpegRateFor(std::uint32_t frequency) noexcept;
