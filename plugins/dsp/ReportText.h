// The text of a batch report: UTF-8, lines end in LF, fields are separated by tabs. One line per
// output, "ok" or "failed", source path, output path, and of a failed one what is known of its errors;
// last "end" and the number of those lines.
#pragma once

#include "foundation/XTagList.h"

#include <string>

// `results` and `errors` are the lists that ResultRows.h describes.
[[nodiscard]] std::string BuildReport(const XTagList& results, const XTagList& errors);
