// An M4A file by FFmpeg's encoders and muxer: audio in, tags at its end, delay and padding told so that
// players give the exact length. Windows only.
//
// The index (moov) stands behind the audio: nothing is written twice, and no length must be known before.
// Files may grow beyond 4 GB.
#pragma once

#include "plugins/common/ByteWriter.h"
#include "plugins/common/OutputFile.h"

#include <memory>

struct AVFrame;

enum class M4aCodec { alac, aac };

struct M4aAudio {
    M4aCodec codec = M4aCodec::alac;
    int channels = 2;              // 1 to 8
    std::uint32_t channelMask = 0; // 0: the usual places
    std::uint32_t frequency = 44100;
    int bits = 16;            // of ALAC: 16 or 24
    std::int64_t bitRate = 0; // of AAC, bits per second
};

class M4aFile {
public:
    M4aFile();
    ~M4aFile();
    M4aFile(const M4aFile&) = delete;
    M4aFile& operator=(const M4aFile&) = delete;

    // False on failure, as of all of these; Error then has the text for the user.
    [[nodiscard]] bool Open(const wchar_t* path, const M4aAudio& audio);
    // Interleaved frames: for ALAC integers of its bits, right-aligned, for AAC floats.
    [[nodiscard]] bool Write(const void* samples, std::uint32_t frames);
    // `items` as BuildMp4Items makes them. A file without audio gets a frame of silence, since players
    // refuse it otherwise.
    [[nodiscard]] bool Finish(ByteVector items);
    void Abandon() noexcept; // closes the file as it stands

    // The codec knows no such places of channels and has them at others, in the same order.
    [[nodiscard]] bool HasOtherPlaces() const noexcept { return hasOtherPlaces; }
    [[nodiscard]] const XString& Error() const noexcept { return error; }

private:
    struct Engine;
    struct Calls; // from FFmpeg
    [[nodiscard]] bool OpenCodec();
    [[nodiscard]] bool TryCodec(std::uint32_t mask);
    [[nodiscard]] bool OpenMuxer();
    [[nodiscard]] bool Send();
    [[nodiscard]] bool SendEnd();
    [[nodiscard]] bool Encode(AVFrame* frame, std::int64_t at);
    [[nodiscard]] bool EncodeMirrored(std::int64_t from, std::int64_t at);
    void KeepPast();
    [[nodiscard]] bool WriteIndex(ByteVector items);
    void Fill(const void* samples, std::uint32_t frames);
    bool Fail(const wchar_t* doing, int code);

    OutputFile file;
    XString error;
    M4aAudio audio;
    bool hasOtherPlaces = false;
    std::uint64_t position = 0; // in the file, of the next byte from FFmpeg
    std::uint64_t furthest = 0; // the file's size, the index included
    std::uint64_t indexAt = 0;  // 0: the audio is still being written
    std::uint64_t framesTaken = 0;
    std::uint64_t packets = 0;
    ByteVector index;
    std::unique_ptr<Engine> engine; // last: its end may still call back
};
