// Text values of the registry, for the few that the foundation itself asks for.
#pragma once

#include "foundation/XString.h"

#include <windows.h>

// A text value as it is stored, without expansion; empty if it is missing or no text. An empty
// `name` is the key's unnamed value.
[[nodiscard]] XString ReadRegistryText(HKEY root, const wchar_t* subkey, const wchar_t* name);
