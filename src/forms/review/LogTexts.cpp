// The wording of the form of errors and information.
#include "forms/review/LogTexts.h"

#include <cstdlib>

clLogKind LogOfTab(int tab, bool hasErrors, bool hasInfo) {
    if (!hasErrors && hasInfo)
        ++tab;
    return tab == 0 ? logErrors : logInformation;
}

XString LogCaption(bool hasErrors, bool hasInfo) {
    XString caption(L"Zephtone: Conversion ");
    if (hasErrors)
        caption += L"Errors";
    if (hasInfo)
        caption += hasErrors ? L" & Information" : L"Information";
    return caption;
}

const wchar_t* CopyButtonText(clLogKind kind) {
    return kind == logErrors ? L"Copy Errors to Clipboard" : L"Copy Info to Clipboard";
}

XString EntryTitle(const clLogEntry& entry, clLogKind kind) {
    XString title(kind == logErrors ? L"Error" : L"Information");
    title += L" converting to " + entry.codecName;
    title += L", '" + entry.source;
    title += L"' to '" + entry.output;
    title += L"'";
    return title;
}

void clCopyText::AddEntry(const wchar_t* title) {
    if (!text.IsEmpty())
        text.Extend(L"\r\n");
    text.Extend(title);
}

void clCopyText::AddLine(const wchar_t* line) {
    text.Extend(L"\r\n   ");
    text.Extend(line);
}

XString FailedSources(const XArray<clLogEntry>& log) {
    XString lines;
    for (const clLogEntry& entry : log) {
        lines.Extend(entry.source);
        lines.Extend(L"\r\n");
    }
    return lines;
}

XString ReconvertCommandLine(const XString& programFolder, const XString& listFile) {
    return L"\"" + programFolder + L"Tonemill.exe\" -list_to_conv=\"" + listFile + L"\"";
}

int WheelSteps(int delta) {
    const int steps = (std::abs(delta) + 119) / 120;
    return delta < 0 ? -steps : steps;
}
