// Where windows stand.
#pragma once

#include <windows.h>

// In pixels of the screen, or of that window's client area.
inline RECT PlaceOf(HWND window, HWND in = nullptr) {
    RECT place{};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, in, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

inline RECT ClientOf(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return client;
}
