// FLAC of more than 24 bits, which FFmpeg 5.1 does not decode, by libFLAC.
#pragma once

#include "foundation/XString.h"
#include "plugins/decoder/FileInput.h"

#include <cstdint>
#include <memory>
#include <vector>

class WideFlac {
public:
    struct Info {
        unsigned channels = 0;
        unsigned frequency = 0;
        unsigned bits = 0;
        std::uint64_t frames = 0; // 0 if the file doesn't tell
    };

    WideFlac();
    ~WideFlac();
    WideFlac(const WideFlac&) = delete;
    WideFlac& operator=(const WideFlac&) = delete;

    // Null if the file is no FLAC of more than 24 bits, or can't be opened.
    [[nodiscard]] static std::unique_ptr<WideFlac> OpenIfWide(const XString& path);
    [[nodiscard]] const Info& Format() const noexcept { return info; }
    // Up to maxFrames interleaved frames; 0 at the end, -1 on damage (a wrong checksum, too).
    [[nodiscard]] int Decode(std::int32_t* out, unsigned maxFrames);
    [[nodiscard]] bool HasWrongChecksum() const noexcept { return wrongChecksum; } // of the whole audio

private:
    struct Callbacks; // libFLAC's types stay in the source file
    [[nodiscard]] bool Start();

    FileInput input;
    void* decoder = nullptr; // FLAC__StreamDecoder
    Info info;
    std::vector<std::int32_t> pending; // interleaved samples of the last block
    std::size_t taken = 0;             // samples of `pending` already handed out
    bool damaged = false;
    bool wrongChecksum = false;
};
