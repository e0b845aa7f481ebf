// A clock that stands still, and a counter that forgets.
#include "naming/NamingSystem.h"

clNamingClock ReadNamingClock() {
    return {L"31/12/2014", L"01:02:03 PM", 3, 2014};
}

std::uint32_t TakeUniqueNumber() {
    static std::uint32_t counter = 0;
    return ++counter;
}
