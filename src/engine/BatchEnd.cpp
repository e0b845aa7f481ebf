// The lists of a batch's results and errors as effects read them.
#include "engine/BatchEnd.h"

#include <unordered_map>

namespace {

constexpr int longestErrors = 4096; // units: a worker may flood, and the first lines tell what happened

XString RowHead(std::int64_t index) {
    return L"file" + DecimalText(index + 1) + L"_";
}

void AddErrors(XString& text, const XStringArray& lines) {
    for (const XString& line : lines) {
        if (text.Count() >= longestErrors)
            break;
        if (!text.IsEmpty())
            text.Extend(L"\n");
        text.Extend(line);
    }
    text = text.Left(longestErrors);
}

} // namespace

void FillResultList(const XArray<clBatchResult>& results, XTagList& list) {
    for (std::int64_t i = 0; i < results.Count(); ++i) {
        const clBatchResult& row = results[i];
        const XString head = RowHead(i);
        list.Add(head + L"in", row.source);
        list.Add(head + L"out", row.output);
        if (row.failed != 0)
            list.Add(head + L"conversionhaderrors", L"");
    }
}

void FillErrorList(const XArray<clBatchResult>& results, const XArray<clLogEntry>& errorLog, XTagList& list) {
    std::unordered_map<std::string_view, XString> errors;
    for (const clLogEntry& entry : errorLog)
        AddErrors(errors[BytesOf(entry.source)], entry.lines);
    for (std::int64_t i = 0; i < results.Count(); ++i) {
        const auto found = errors.find(BytesOf(results[i].source));
        if (found != errors.end())
            list.Add(RowHead(i) + L"errors", found->second);
    }
}
