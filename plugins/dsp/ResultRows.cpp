#include "plugins/dsp/ResultRows.h"

namespace {

// "file12_in": 12 and "in". False if it is no key of a row.
bool SplitKey(const XString& key, std::int64_t& number, XString& tail) {
    const int underscore = key.FindChar(L'_');
    if (!key.StartsWith(L"file") || underscore < 6)
        return false;
    number = key.Mid(5, underscore - 1).ToInt();
    tail = key.From(underscore + 1);
    return number != 0;
}

} // namespace

bool ResultReader::Next(ResultRow& row) {
    row = ResultRow();
    for (; at < results.Count(); ++at) {
        const XTagItem& item = results[at];
        std::int64_t number = 0;
        XString tail;
        if (!SplitKey(item.key, number, tail))
            continue;
        if (row.number != 0 && number != row.number)
            return true;
        row.number = number;
        if (tail == L"in")
            row.source = item.value;
        else if (tail == L"out")
            row.output = item.value;
        else if (tail == L"conversionhaderrors")
            row.failed = true;
    }
    return row.number != 0;
}

ResultErrors ErrorsByRow(const XTagList& errors) {
    ResultErrors found;
    for (std::int64_t i = 0; i < errors.Count(); ++i) {
        std::int64_t number = 0;
        XString tail;
        if (SplitKey(errors[i].key, number, tail) && tail == L"errors")
            found[number] = errors[i].value;
    }
    return found;
}
