#include "plugins/dsp/ReportText.h"

#include "plugins/common/TagText.h"
#include "plugins/dsp/ResultRows.h"

namespace {

// Tabs and line ends, which names may hold on other systems, would break the lines.
std::string Field(const XString& text) {
    std::string field = ToUtf8(text);
    for (char& c : field)
        if (c == '\t' || c == '\n' || c == '\r')
            c = ' ';
    return field;
}

} // namespace

std::string BuildReport(const XTagList& results, const XTagList& errors) {
    std::string out;
    std::int64_t count = 0;
    const ResultErrors reasons = ErrorsByRow(errors);
    ResultReader reader(results);
    for (ResultRow row; reader.Next(row); ++count) {
        out += row.failed ? "failed\t" : "ok\t";
        out += Field(row.source) + "\t" + Field(row.output);
        const auto reason = reasons.find(row.number);
        if (row.failed && reason != reasons.end()) {
            out += '\t';
            out += Field(reason->second);
        }
        out += "\n";
    }
    out += "end\t" + std::to_string(count) + "\n";
    return out;
}
