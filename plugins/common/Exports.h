// What all plug-in libraries share at their border: nothing thrown leaves, null instances answer
// failure, and what is returned lives in the instance until its next call.
#pragma once

#include "contract/Keys.h"
#include "contract/Plugin.h"
#include "foundation/XString.h"

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

// The settings panel's side of a plug-in that has no panel yet: what was shown comes back.
class SettingsPanel {
public:
    void Show(const wchar_t* text) { settings = text; }
    [[nodiscard]] const wchar_t* Text() const noexcept { return settings; }

private:
    XString settings;
};
