// Renders a gradient between four corners.
#pragma once

#include "toolkit/XGradientColours.h"

#include <windows.h>

// Pixels; right and bottom edge are painted too. Sideways only when the corners allow it, by rows
// otherwise.
void PaintGradient(HDC dc, const RECT& edges, const XCornerColours& colours);
