// The look of a disabled icon.
#pragma once

#include "foundation/XHandles.h"

// A copy in pale grey: each pixel that is not black takes the mean of its colours plus 35, at most
// 255. Mask and transparency stay. An icon of two colours is copied as it is; empty on failure.
[[nodiscard]] XIcon MakeGreyIcon(HICON icon);
