// Reads an encoder's output by a decoder that takes its extension.
#pragma once

#include "Library.h"
#include "Sound.h"
#include "foundation/XTagList.h"
#include "host/clZtDecoder.h"

class Judge {
public:
    // The decoder named by the user, else the first of the program folder that takes the extension.
    Judge(const Checked& checked, const XString& extension);
    [[nodiscard]] bool IsThere() const { return decoder.instance != nullptr; }
    // Format, samples to the end, and tags. On failure the decoder's own words.
    [[nodiscard]] bool Read(const XString& path, Sound& sound, XTagList& tags, XString& error);

private:
    clZtDecoder decoder;
};
