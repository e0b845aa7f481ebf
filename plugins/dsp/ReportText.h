// The text of a batch report: UTF-8, lines end in LF, fields are separated by tabs. One line per
// output, "ok" or "failed", source path, output path; last "end" and the number of those lines.
#pragma once

#include "foundation/XTagList.h"

#include <string>

// `results` holds "file1_in", "file1_out", "file1_conversionhaderrors" (failed rows only), "file2_in"...
[[nodiscard]] std::string BuildReport(const XTagList& results);
