// The file dialog's list of formats, made from what the decoders say of themselves. Portable.
#pragma once

#include "foundation/XArray.h"

// Elements are "text\rpattern;pattern", as the open dialog wants them.
using DecoderFilterList = XStringArray;

// What is told of a source that is no plain file; such extensions reach no list.
inline constexpr wchar_t ignoredExtensionMark[] = L".IGNORE";

// Replaces the content of `out`. The arrays are parallel, in the order of enumeration; duplicates stay.
void BuildDecoderFilterList(DecoderFilterList& out, const XStringArray& extensions,
                            const XStringArray& descriptions, bool allAudioEntry);
