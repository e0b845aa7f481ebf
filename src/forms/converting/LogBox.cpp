// Text and box for the logs.
#include "forms/converting/LogBox.h"

#include "engine/ProgressText.h"

#include <algorithm>

namespace {

// Of each log; more would not fit on a screen, and the box's button has to.
constexpr std::int64_t maximumEntries = 12;
constexpr std::int64_t maximumLines = 24;

void AppendLog(XString& text, const wchar_t* title, const XArray<clLogEntry>& log) {
    if (log.IsEmpty())
        return;
    text.Extend(title);
    const std::int64_t shown = std::min(log.Count(), maximumEntries);
    std::int64_t lines = 0;
    for (std::int64_t i = 0; i < shown; ++i) {
        text.Extend(log[i].source);
        text.Extend(L"\r\n");
        for (const XString& line : log[i].lines)
            if (++lines <= maximumLines)
                text.Extend(L"    " + line + L"\r\n");
    }
    if (lines > maximumLines)
        text.Extend(L"... and " + DecimalText(lines - maximumLines) + L" more lines of these\r\n");
    if (log.Count() > shown)
        text.Extend(L"... and " + DecimalText(log.Count() - shown) + L" more\r\n");
    text.Extend(L"\r\n");
}

} // namespace

XString LogBoxText(const XArray<clLogEntry>& errors, const XArray<clLogEntry>& information) {
    XString text;
    AppendLog(text, L"Errors:\r\n", errors);
    AppendLog(text, L"Information:\r\n", information);
    return text;
}

void ShowLogBox(HWND owner, const XArray<clLogEntry>& errors, const XArray<clLogEntry>& information) {
    const UINT icon = errors.IsEmpty() ? MB_ICONINFORMATION : MB_ICONERROR;
    MessageBoxW(owner, LogBoxText(errors, information), programCaption, icon);
}
