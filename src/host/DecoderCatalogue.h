// Which decoder reads a file, and what can be read at all. The libraries are the truth; the registry
// remembers one per extension, and what it remembers is tried, not trusted.
#pragma once

#include "host/DecoderFilter.h"
#include "host/PluginFolders.h"
#include "host/clZtDecoder.h"

// The extension under which decoders are looked up: from the last dot on if it lies behind the last
// backslash, else empty.
[[nodiscard]] XString SourceExtension(const wchar_t* path);

// True if `decoder` then holds a library that claims the path's extension, with an instance. False:
// no decoder takes the file. The block is the plug-in's Create block, zeroed for no trace.
bool OpenDecoderFor(const wchar_t* path, clZtDecoder& decoder, PluginCreateBlock* block);
// The same for one library. On false the object is unloaded.
bool TryDecoder(const wchar_t* libraryPath, const wchar_t* extension, clZtDecoder& decoder,
                PluginCreateBlock* block);
// Asks every library; replaces the content of the lists, either may be null.
void EnumerateDecoders(bool allAudioEntry, XStringArray* extensions, DecoderFilterList* filters);

// What a list form remembers of its last question.
struct SourceIconCache {
    XString extension;
    int iconIndex = -1;
};
// Index in the system's small icons, -1 if none. Takes a path or a bare extension with its dot.
[[nodiscard]] int GetSourceIconIndex(SourceIconCache& cache, const wchar_t* pathOrExtension);
