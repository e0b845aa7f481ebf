// Puts the gain of an album into a file that is complete. Windows only.
#pragma once

#include "foundation/XString.h"

// True for files whose extension says that they hold such tags.
[[nodiscard]] bool CanHoldAlbumGain(const XString& path);
// Gain and peak (full scale is 1) under the names of the file's format, in place of earlier ones; audio,
// pictures and other tags stay. The peak is left out where the format has no name for it. On failure the
// file stays as it was and `error` says why.
[[nodiscard]] bool WriteAlbumGain(const XString& path, double decibels, double peak, XString& error);
