// Counts of what the process holds, to be compared before and after.
#pragma once

#include "foundation/XHandles.h"

// How far the process's handles reach. Wine counts none for us (it answers 0) but gives a new object
// the first free slot, so that there the slot of a fresh one tells as much as a count.
struct HandleReach {
    HandleReach() {
        gdi = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
        user = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
        GetProcessHandleCount(GetCurrentProcess(), &kernel);
        if (gdi == 0) {
            const XGdiObject pen(CreatePen(PS_SOLID, 1, 0));
            gdi = LOWORD(reinterpret_cast<ULONG_PTR>(pen.Get()));
        }
        if (user == 0) {
            const XMenu menu(CreatePopupMenu());
            user = LOWORD(reinterpret_cast<ULONG_PTR>(menu.Get())) / 2;
        }
        if (kernel == 0) {
            const XKernelHandle event(CreateEventW(nullptr, TRUE, FALSE, nullptr));
            kernel = static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(event.Get()) / 4);
        }
    }
    DWORD gdi = 0;
    DWORD user = 0;
    DWORD kernel = 0;
};
