// A source through the decoder that takes it: format, tags, and frames in order. Windows only.
#pragma once

#include "foundation/XBuffer.h"
#include "host/clZtDecoder.h"
#include "worker/Reporter.h"

inline constexpr std::uint32_t blockFrames = 8192; // small enough to look at the quit event in time

class SourceReader {
public:
    explicit SourceReader(Reporter& reporter) : reporter(reporter) {}

    // All of these report what goes wrong.
    [[nodiscard]] bool Open(const XString& path);
    [[nodiscard]] bool Rewind(); // from the first frame again; format and images stay
    // The next frames, in Frames(): at most blockFrames, 0 at a sound end, -1 on failure. An end that
    // comes before what the file itself says is a failure.
    [[nodiscard]] std::int32_t Read();
    [[nodiscard]] const void* Frames() const noexcept { return frames.data; }
    [[nodiscard]] std::uint64_t Position() const noexcept { return position; } // frames since the start
    void ReportInformation(); // what the decoder has to say of the file, once it was read to its end
    void Close();             // the file is free afterwards; format and images stay

    AudioFormatRecord format{};
    XBuffer tags; // images, empty if there are none
    XBuffer properties;

private:
    void Error(const XString& what);
    [[nodiscard]] XString LastError() const; // of the decoder, in brackets behind a blank; or empty
    [[nodiscard]] bool OpenFile(std::uint32_t wanted, DecoderOpenBlock& block);
    void ReportRefusal();
    [[nodiscard]] bool IsEndSound();

    Reporter& reporter;
    clZtDecoder decoder;
    XString path;
    XString longPath;
    XBuffer frames;
    std::uint64_t position = 0;
};
