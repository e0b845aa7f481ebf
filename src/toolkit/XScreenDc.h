// The context of the whole screen for the length of a scope, to measure in and to be compatible with.
#pragma once

#include <windows.h>

class XScreenDc {
public:
    XScreenDc() noexcept : dc(GetDC(nullptr)) {}
    ~XScreenDc() {
        if (dc)
            ReleaseDC(nullptr, dc);
    }
    XScreenDc(const XScreenDc&) = delete;
    XScreenDc& operator=(const XScreenDc&) = delete;
    operator HDC() const noexcept { return dc; }

private:
    HDC dc;
};
