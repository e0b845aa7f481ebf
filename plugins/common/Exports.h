// What all plug-in libraries share at their border: nothing thrown leaves, null instances answer
// failure, and what is returned lives in the instance until its next call.
#pragma once

#include "contract/Keys.h"
#include "contract/Plugin.h"
#include "foundation/XString.h"

#include <windows.h>

#include <new>

#define ZT_EXPORT extern "C" __declspec(dllexport)

template <class Plugin, class Result, class Call>
Result GuardedCall(ZtInstance instance, Result failure, Call call) noexcept {
    if (!instance)
        return failure;
    try {
        return call(*static_cast<Plugin*>(instance));
    } catch (...) { // memory ran out
        return failure;
    }
}

template <class Plugin>
ZtInstance CreateInstance() noexcept {
    try {
        return new Plugin;
    } catch (...) {
        return nullptr;
    }
}

// The exports of a plug-in's `panel`, a PanelWindow.
template <class Plugin>
void ShowPanel(ZtInstance instance, void* parent, std::int32_t x, std::int32_t y,
               const wchar_t* settings) noexcept {
    GuardedCall<Plugin>(instance, 0, [&](Plugin& plugin) {
        plugin.panel.Show(static_cast<HWND>(parent), x, y, settings);
        return 1;
    });
}

template <class Plugin>
const wchar_t* RemovePanel(ZtInstance instance, void* parent) noexcept {
    return GuardedCall<Plugin>(instance, static_cast<const wchar_t*>(nullptr),
                               [&](Plugin& plugin) { return plugin.panel.Remove(parent); });
}
