// The rows of a batch's result list as effects get it: "file1_in", "file1_out",
// "file1_conversionhaderrors" (failed rows only), "file2_in"... And the list of their errors, which comes
// ahead of it: "file1_errors".
#pragma once

#include "foundation/XTagList.h"

#include <cstdint>
#include <unordered_map>

struct ResultRow {
    std::int64_t number = 0; // 0: none yet
    bool failed = false;
    XString source;
    XString output;
};

// Walks the list in its order: a search per key would take minutes with 100,000 files.
class ResultReader {
public:
    explicit ResultReader(const XTagList& results) : results(results) {}
    [[nodiscard]] bool Next(ResultRow& row); // false behind the last; what is no row is passed over

private:
    const XTagList& results;
    std::int64_t at = 0;
};

// The lines of errors, separated by LF, by the number of their row.
using ResultErrors = std::unordered_map<std::int64_t, XString>;
[[nodiscard]] ResultErrors ErrorsByRow(const XTagList& errors);
