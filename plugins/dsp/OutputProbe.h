// Looks at audio files through the decoders of the program's folder. Windows only.
#pragma once

#include "host/clZtDecoder.h"

#include <tuple>

class OutputProbe {
public:
    OutputProbe();
    // False unless a decoder opens the file. Nothing holds the file afterwards.
    [[nodiscard]] bool ReadFormat(const XString& path, AudioFormatRecord& format);
    // The same, and the audio is there up to its end.
    [[nodiscard]] bool ReadWhole(const XString& path, AudioFormatRecord& format);

private:
    [[nodiscard]] bool Open(const XString& path, AudioFormatRecord& format);
    [[nodiscard]] bool DecodesEnd(const AudioFormatRecord& format) const;

    clZtDecoder decoder; // stays loaded from file to file
};

// What names a file whatever the path to it; all zero if it can't be opened.
struct FileIdentity {
    std::uint32_t volume = 0;
    std::uint64_t index = 0;
    [[nodiscard]] bool IsKnown() const noexcept { return volume != 0 || index != 0; }
    [[nodiscard]] bool operator<(const FileIdentity& other) const noexcept {
        return std::tie(volume, index) < std::tie(other.volume, other.index);
    }
};
[[nodiscard]] FileIdentity IdentityOf(const XString& path);
