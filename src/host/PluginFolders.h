// Where the plug-ins stand: folders `decoder`, `encoder` and `DSPs` beside the program. Windows only.
#pragma once

#include "foundation/XString.h"

// The folder that holds the three: the program's own unless told otherwise. With its backslash.
[[nodiscard]] XString PluginRoot();
// Null: the program's own again. To be set before any thread starts.
void SetPluginRoot(const wchar_t* folder);

[[nodiscard]] XString DecoderFolder(); // all three with their backslash
[[nodiscard]] XString EncoderFolder();
[[nodiscard]] XString EffectFolder();
[[nodiscard]] XString EncoderLibraryPath(const wchar_t* name);
[[nodiscard]] XString EffectLibraryPath(const wchar_t* name);
