#include "worker/Reporter.h"

#include "contract/Worker.h"
#include "foundation/XArray.h"

Reporter::Reporter() noexcept
    : output(GetStdHandle(STD_OUTPUT_HANDLE)), errors(GetStdHandle(STD_ERROR_HANDLE)) {}

void Reporter::WriteLine(HANDLE handle, const XString& text) {
    if (!handle || handle == INVALID_HANDLE_VALUE)
        return;
    // A plug-in's message may have lines of its own, and they must not fall apart into several errors.
    XString line = text;
    line.Replace(L"\r\n", L" ");
    line.Replace(L"\r", L" ");
    line.Replace(L"\n", L" ");
    line += L"\r\n";
    DWORD written = 0;
    const auto size = static_cast<DWORD>(line.Count()) * static_cast<DWORD>(sizeof(wchar_t));
    if (WriteFile(handle, line.Text(), size, &written, nullptr))
        return;
    const DWORD error = GetLastError();
    if (error == ERROR_BROKEN_PIPE || error == ERROR_NO_DATA || error == ERROR_PIPE_NOT_CONNECTED)
        broken = true;
}

void Reporter::Message(const wchar_t* key, const XString& value) {
    WriteLine(output, XString(ZtWorker::messageMark) + ZtWorker::addressee + L": " + key + L": " + value);
}

void Reporter::Information(const XString& text) {
    WriteLine(output, text);
}

void Reporter::InformationLines(const XString& text) {
    XStringArray lines;
    Split(lines, text, L"\n");
    for (const XString& line : lines)
        if (!line.IsEmpty())
            Information(line);
}

void Reporter::Error(const XString& text) {
    WriteLine(errors, text);
}

void Reporter::Percent(int percent) {
    if (percent <= lastPercent)
        return;
    lastPercent = percent;
    Message(ZtWorker::keyPercent, DecimalText(percent));
}
