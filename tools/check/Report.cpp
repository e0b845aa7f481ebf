#include "Report.h"

#include "Utf8Line.h"

#include <algorithm>

void Report::Tell(Finding finding, const XString& text) {
    const XString line = XString(L"?") + text;
    std::vector<char> bytes = Utf8Line(line);
    bytes[0] = static_cast<char>(finding);
    DWORD written = 0;
    WriteFile(pipe, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

void Report::BeginCall(const XString& name, DWORD limitMs) {
    const int units = std::min(name.Count(), callUnits - 1);
    std::copy_n(name.Text(), units, state.call);
    state.call[units] = 0;
    state.thrownCode = 0;
    state.limitMs = limitMs;
    state.startedMs = GetTickCount64();
}

void Report::EndCall() {
    lastCallMs = static_cast<DWORD>(GetTickCount64() - state.startedMs);
    state.startedMs = 0;
}
