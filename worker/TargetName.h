// Judging an output path and naming the file that is written in its stead until it is complete.
// Portable.
#pragma once

#include "foundation/XString.h"

// Null if Windows can take the path; else what is wrong with it, to stand behind the path.
[[nodiscard]] const wchar_t* TargetPathFault(const XString& path);
// Beside `target`, with its extension; `unique` and `attempt` go into the short name.
[[nodiscard]] XString TemporaryTargetPath(const XString& target, std::uint32_t unique, int attempt);
