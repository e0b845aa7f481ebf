// Lists of results, as effects hear them at the end of a batch.
#pragma once

#include "foundation/XArray.h"
#include "foundation/XTagList.h"

// Of rows "source>output", separated by '|'; a '!' in front: the row failed.
struct ResultList : XTagList {
    explicit ResultList(const wchar_t* rows) {
        XStringArray parts;
        Split(parts, rows, L"|");
        for (std::int64_t i = 0; i < parts.Count(); ++i) {
            const bool failed = parts[i].StartsWith(L"!");
            const XString row = parts[i].From(failed ? 2 : 1);
            const XString key = L"file" + DecimalText(i + 1) + L"_";
            const int arrow = row.FindChar(L'>');
            Add(key + L"in", row.Left(arrow - 1));
            Add(key + L"out", row.From(arrow + 1));
            if (failed)
                Add(key + L"conversionhaderrors", L"");
        }
    }
};
