// The drawing of a progress bar, double-buffered.
#pragma once

#include <windows.h>

// Sizes in pixels at 96 dots per inch.
inline constexpr int overallBarWidth = 489;
inline constexpr int overallBarHeight = 17;
inline constexpr int rowBarWidth = 402;
inline constexpr int rowBarHeight = 14;

// Fills `place` with an empty bar and, over its left `percent` of the width, a full one. Percents
// above 100 count as 100, negative ones as 0.
void DrawProgressBar(HDC dc, const RECT& place, int percent);
