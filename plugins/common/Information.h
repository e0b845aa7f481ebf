// What encoders tell the user's information log: tags that a target can't hold, and clipping.
#pragma once

#include "foundation/XTagList.h"

#include <cstdint>

// Names of tags that were left out, each once.
class LeftOutTags {
public:
    void Add(const XTagItem& item);                     // empty records are nothing to tell of
    [[nodiscard]] bool Has(const XTagItem& item) const; // of texts: one of this key was left out
    [[nodiscard]] std::int64_t Pictures() const noexcept { return pictures; }
    // "AIFF can't hold these tags of the source: lyrics, cover art"; empty if none was left out.
    [[nodiscard]] XString Text(const wchar_t* target) const;

private:
    XStringArray names;
    std::int64_t pictures = 0;
};

// "3 samples above full scale were clipped"; empty for 0.
[[nodiscard]] XString ClippedText(std::uint64_t samples);
// "mp3 can't hold 96000 Hz: the audio was brought to 48000 Hz"
[[nodiscard]] XString RateText(const wchar_t* target, std::uint32_t from, std::uint32_t to);
