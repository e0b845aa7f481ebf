// What all plug-ins of the tests' own need.
#pragma once

#include "contract/Plugin.h"

#include <cwchar>

#define FAKE_EXPORT extern "C" __declspec(dllexport)

inline bool IsText(const wchar_t* left, const wchar_t* right) {
    return std::wcscmp(left, right) == 0;
}
