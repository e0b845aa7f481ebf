// Counts of what the process holds, to be compared before and after.
#pragma once

#include "foundation/XHandles.h"

#include <gtest/gtest.h>

#include <vector>

// How far the process's handles reach. Wine counts none for us (it answers 0) but gives a new object
// a free slot before it takes a new one, so that there the slots of fresh ones tell as much as a count.
struct HandleReach {
    HandleReach() {
        isCounted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS) != 0;
        gdi = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
        user = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
        GetProcessHandleCount(GetCurrentProcess(), &kernel);
        if (gdi == 0)
            gdi = Highest<XGdiObject>([] { return CreatePen(PS_SOLID, 1, 0); });
        if (user == 0)
            user = Highest<XMenu>(CreatePopupMenu) / 2;
        if (kernel == 0) {
            const XKernelHandle event(CreateEventW(nullptr, TRUE, FALSE, nullptr));
            kernel = static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(event.Get()) / 4);
        }
    }
    DWORD gdi = 0;
    DWORD user = 0;
    DWORD kernel = 0;
    bool isCounted = false; // by the system, to the last one

private:
    // The slot that was freed last comes first: only the highest, behind all free ones, counts.
    template <class Owner, class Make>
    static DWORD Highest(Make make) {
        std::vector<Owner> owners;
        DWORD highest = 0;
        for (int i = 0; i < 1000; ++i) {
            owners.emplace_back(make());
            const DWORD slot = LOWORD(reinterpret_cast<ULONG_PTR>(owners.back().Get()));
            highest = slot > highest ? slot : highest;
        }
        return highest;
    }
};

// Checks that `rounds` of the same work left nothing behind. What is only told by slots may reach a
// little further, as far as the work was interleaved otherwise; a leak in each round shows all the same.
inline void ExpectNothingLeft(const HandleReach& before, const HandleReach& after, DWORD rounds) {
    const DWORD slack = after.isCounted ? 0 : rounds / 4;
    EXPECT_LE(after.gdi, before.gdi + slack);
    EXPECT_LE(after.user, before.user + slack);
    EXPECT_LE(after.kernel, before.kernel + slack);
}

// Does the work once, for what the system keeps from then on, and then so many rounds that leave nothing.
template <class Work>
void ExpectNothingLeftBy(DWORD rounds, Work work) {
    work();
    const HandleReach before;
    for (DWORD i = 0; i < rounds; ++i)
        work();
    const HandleReach after;
    ExpectNothingLeft(before, after, rounds);
}
