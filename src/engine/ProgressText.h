// Numbers and texts that the progress form shows. Portable.
#pragma once

#include "foundation/XString.h"

#include <cstdint>

inline constexpr wchar_t programCaption[] = L"Zephtone Tonemill";

// Each as the form's control is to show it.
struct clProgressTexts {
    XString title; // of the form; empty until the conversion runs
    XString heading;
    XString status;
    XString speed;
    XString elapsed;
    XString remaining;
};

// `units` are milliseconds of play length; `multiplier` is the encoder's, at least 1.
[[nodiscard]] XString FormatSpeed(std::uint64_t units, std::uint32_t elapsedMs, std::int32_t multiplier);
// The two largest parts; in short form a largest part of 4 and more stands alone. 0 gives "".
[[nodiscard]] XString FormatElapsed(std::uint64_t seconds, bool full);

[[nodiscard]] std::int64_t OverallPercent(std::uint64_t doneUnits, std::uint64_t totalUnits);
// Projected by the overall rate. False, and 0, when nothing is done yet.
bool RemainingMs(std::uint64_t doneUnits, std::uint64_t totalUnits, std::uint32_t elapsedMs,
                 std::int64_t& remainingMs);

[[nodiscard]] XString ExaminingText(std::int64_t position, std::int64_t fileCount);
[[nodiscard]] XString StartHeading(std::int32_t filesToConvert, const XString& codecName);
[[nodiscard]] XString ProgressHeading(std::int32_t current, std::int32_t filesToConvert,
                                      const XString& codecName);
[[nodiscard]] XString FinishedHeading(std::int32_t filesToConvert, const XString& codecName);
[[nodiscard]] XString ProgressTitle(std::int64_t percent);
