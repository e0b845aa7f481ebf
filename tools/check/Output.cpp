#include "Output.h"

#include "Utf8Line.h"

void Output::Line(const XString& text) {
    const HANDLE out = GetStdHandle(STD_OUTPUT_HANDLE);
    DWORD mode = 0, written = 0;
    if (GetConsoleMode(out, &mode)) {
        const XString line = text + L"\r\n";
        WriteConsoleW(out, line.Text(), static_cast<DWORD>(line.Count()), &written, nullptr);
        return;
    }
    const std::vector<char> bytes = Utf8Line(text);
    WriteFile(out, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

void Output::Tell(Finding finding, const XString& text) {
    switch (finding) {
    case Finding::ok:
        ++okCount;
        return Line(XString(L"ok      ") + text);
    case Finding::broken:
        ++brokenCount;
        return Line(XString(L"BROKEN  ") + text);
    case Finding::note:
        ++noteCount;
        return Line(XString(L"note    ") + text);
    }
}

int Output::Count(Finding finding) const {
    return finding == Finding::ok ? okCount : finding == Finding::broken ? brokenCount : noteCount;
}
