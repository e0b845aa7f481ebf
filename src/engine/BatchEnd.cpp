// The list of a batch's results as effects read it.
#include "engine/BatchEnd.h"

void FillResultList(const XArray<clBatchResult>& results, XTagList& list) {
    for (std::int64_t i = 0; i < results.Count(); ++i) {
        const clBatchResult& row = results[i];
        const XString head = L"file" + DecimalText(i + 1) + L"_";
        list.Add(head + L"in", row.source);
        list.Add(head + L"out", row.output);
        if (row.failed != 0)
            list.Add(head + L"conversionhaderrors", L"");
    }
}
