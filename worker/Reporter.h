// The worker's lines to Tonemill. A line is one write, since the reader keeps nothing back for the
// next read. Windows only.
#pragma once

#include "foundation/XString.h"

#include <windows.h>

class Reporter {
public:
    Reporter() noexcept;
    // Nobody reads any more. Stays false in a process that was started without pipes.
    [[nodiscard]] bool IsBroken() const noexcept { return broken; }

    void Message(const wchar_t* key, const XString& value);
    void Information(const XString& text);
    void InformationLines(const XString& text); // one line per LF; empty ones are left out
    void Error(const XString& text);            // what failed, and on which file
    void Percent(int percent);                  // sent when it is above the last one

private:
    void WriteLine(HANDLE handle, const XString& text);

    HANDLE output; // borrowed, both
    HANDLE errors;
    int lastPercent = -1;
    bool broken = false;
};
