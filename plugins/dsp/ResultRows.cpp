#include "plugins/dsp/ResultRows.h"

bool ResultReader::Next(ResultRow& row) {
    row = ResultRow();
    for (; at < results.Count(); ++at) {
        const XTagItem& item = results[at];
        const int underscore = item.key.FindChar(L'_');
        if (!item.key.StartsWith(L"file") || underscore < 6)
            continue;
        const std::int64_t number = item.key.Mid(5, underscore - 1).ToInt();
        if (number == 0)
            continue;
        if (row.number != 0 && number != row.number)
            return true;
        row.number = number;
        const XString tail = item.key.From(underscore + 1);
        if (tail == L"in")
            row.source = item.value;
        else if (tail == L"out")
            row.output = item.value;
        else if (tail == L"conversionhaderrors")
            row.failed = true;
    }
    return row.number != 0;
}
