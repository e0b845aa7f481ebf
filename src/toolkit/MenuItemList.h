// The records of a menu item's display list.
#pragma once

#include "toolkit/XDisplayList.h"

// Bits of the active mask. One of each pair is set.
inline constexpr std::uint32_t menuEnabled = 1, menuDisabled = 2;
inline constexpr std::uint32_t menuSelected = 4, menuUnselected = 8;
inline constexpr std::uint32_t menuUnchecked = 16, menuChecked = 32;

struct clMenuLook {
    int Strip = 0;      // pixels of the strip for icons; 0 is none
    int IconHeight = 0; // pixels
    int FontHeight = 0; // pixels
    int Scale96 = 96;   // dots per inch of the check mark's size
};

// Both clear `list` first. `icon` may be null; it is the client's and must outlive the list's records.
void BuildMenuItem(XDisplayList& list, const XString& text, HICON icon, const clMenuLook& look);
void BuildMenuSeparator(XDisplayList& list, const clMenuLook& look);
