// How the format and the tags of a finished output compare with what its encoder has written. Portable.
#pragma once

#include "contract/Plugin.h"
#include "foundation/XTagList.h"

// What an encoder tells of a complete file.
struct clWritten {
    AudioFormatRecord format{}; // channels 0: it does not say
    XTagList tags;
};

// What is wrong, as a text for the user; empty if nothing is.
[[nodiscard]] XString FormatFault(const AudioFormatRecord& written, const AudioFormatRecord& found);
// Further tags in the file are no fault.
[[nodiscard]] XString TagFault(const XTagList& written, XTagList& found);
