// Walks the results in their order: a search per key would take minutes with 100,000 files.
#include "plugins/dsp/ReportText.h"

#include "plugins/common/TagText.h"

namespace {

struct ReportRow {
    std::int64_t number = 0; // 0: none yet
    bool failed = false;
    XString source;
    XString output;
};

// Tabs and line ends, which names may hold on other systems, would break the lines.
std::string Field(const XString& text) {
    std::string field = ToUtf8(text);
    for (char& c : field)
        if (c == '\t' || c == '\n' || c == '\r')
            c = ' ';
    return field;
}

void WriteRow(const ReportRow& row, std::string& out, std::int64_t& count) {
    if (row.number == 0)
        return;
    out += row.failed ? "failed\t" : "ok\t";
    out += Field(row.source) + "\t" + Field(row.output) + "\n";
    ++count;
}

} // namespace

std::string BuildReport(const XTagList& results) {
    std::string out;
    ReportRow row;
    std::int64_t count = 0;
    for (std::int64_t i = 0; i < results.Count(); ++i) {
        const XTagItem& item = results[i];
        const int underscore = item.key.FindChar(L'_');
        if (!item.key.StartsWith(L"file") || underscore < 6)
            continue;
        const std::int64_t number = item.key.Mid(5, underscore - 1).ToInt();
        if (number != row.number) {
            WriteRow(row, out, count);
            row = ReportRow();
            row.number = number;
        }
        const XString tail = item.key.From(underscore + 1);
        if (tail == L"in")
            row.source = item.value;
        else if (tail == L"out")
            row.output = item.value;
        else if (tail == L"conversionhaderrors")
            row.failed = true;
    }
    WriteRow(row, out, count);
    out += "end\t" + std::to_string(count) + "\n";
    return out;
}
