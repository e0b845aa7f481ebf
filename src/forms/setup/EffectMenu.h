// The popup on the chain of effects: adds, removes, clears, saves and loads.
#pragma once

#include "forms/setup/EffectChainList.h"
#include "toolkit/XOwnerMenu.h"

#include <windows.h>

#include <commdlg.h>

#include <functional>

// What tests put in place of the real thing; an empty one is the real thing.
struct clEffectSeams {
    std::function<bool(OPENFILENAMEW&)> askSaveName, askOpenName; // false: cancelled
    std::function<void(const XString& address)> openAddress;
};

// Where effects can be had; opened when none is installed.
inline constexpr wchar_t effectsAddress[] = L"https://www.example.com/effects";

// Fills `menu` anew, shows it and carries out what was chosen; returns when all of that has ended.
// `menu` is served by the form's PreMessage. It opens where the list was clicked, else at the cursor
// if that is on `button`, else below `button`.
void ShowEffectMenu(HWND form, XOwnerMenu& menu, EffectChainList& list, HWND button,
                    const clEffectSeams& seams);
