// The lines that the user sees, and how many there were of each kind.
#pragma once

#include "Report.h"

class Output {
public:
    void Line(const XString& text); // as it is
    void Tell(Finding finding, const XString& text);
    [[nodiscard]] int Count(Finding finding) const;

private:
    int okCount = 0, brokenCount = 0, noteCount = 0;
};
