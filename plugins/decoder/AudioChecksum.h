// The MD5 that a FLAC file holds of its audio, compared with what is decoded (RFC 9639, 8.2).
#pragma once

#include "plugins/common/Checksums.h"

#include <vector>

class AudioChecksum {
public:
    // The digest of the samples, in whole bytes, signed and little-endian. All zeros: there is none.
    void Expect(const unsigned char* digest, int bits, int channels);
    // Samples as the decoder gives them out, from the first one on.
    void Add(const void* samples, std::size_t frames);
    // Samples were left out, or are not those of the file: there is nothing to compare any more.
    void Stop() noexcept { isActive = isWrong = false; }
    // At the end. True, too, if there is nothing to compare.
    [[nodiscard]] bool IsRight() noexcept;

private:
    bool isActive = false;
    bool isWrong = false;
    unsigned char expected[Md5::digestBytes] = {};
    int sampleBytes = 2;
    int channels = 2;
    Md5 md5;
    std::vector<unsigned char> packed;
};
