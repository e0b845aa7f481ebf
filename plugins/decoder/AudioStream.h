// One audio stream of a source file, decoded from its start to its end by FFmpeg. Encoder delay and
// padding are cut off; the format stays that of the first frame, whatever a stream does later.
#pragma once

#include "contract/Plugin.h"
#include "foundation/XString.h"
#include "plugins/decoder/AudioChecksum.h"
#include "plugins/decoder/FileInput.h"
#include "plugins/decoder/Samples.h"
#include "plugins/decoder/WideFlac.h"

struct AVCodecContext;
struct AVFormatContext;
struct AVFrame;
struct AVPacket;
struct AVStream;
struct SwrContext;

class AudioStream {
public:
    AudioStream() = default;
    ~AudioStream() { Close(); }
    AudioStream(const AudioStream&) = delete;
    AudioStream& operator=(const AudioStream&) = delete;

    // Opens and decodes up to the first frame, so that the format is the real one. On failure
    // false, and Error() tells why.
    [[nodiscard]] bool Open(const XString& path, AudioFormatRecord& format);
    void Close() noexcept;

    // Up to maxFrames frames; 0 at the end, -1 on damage.
    [[nodiscard]] int Decode(void* samples, unsigned maxFrames);
    // Decodes on from the start and drops what lies before `frame`.
    [[nodiscard]] bool SeekTo(std::uint64_t frame);

    [[nodiscard]] const XString& Error() const noexcept { return error; }
    // What was passed over so far, and what may be missing at the end, in lines separated by LF; empty
    // if there is nothing to tell.
    [[nodiscard]] XString DamageText() const;
    // Against copying: it opens, and none of it can be decoded.
    [[nodiscard]] bool IsProtected() const noexcept { return isProtected; }
    [[nodiscard]] AVFormatContext* Container() const noexcept { return container; } // borrowed
    [[nodiscard]] AVStream* Stream() const noexcept { return stream; }              // borrowed

private:
    enum class Step { frame, end, damage };

    [[nodiscard]] bool OpenContainer();
    [[nodiscard]] bool FindStream();
    void LearnProtection();
    void DescribeProtected(AudioFormatRecord& record);
    [[nodiscard]] bool OpenCodec();
    void LearnLength();
    void LearnGaplessLength();
    void LearnChecksum();
    [[nodiscard]] bool OpenWideFlac(AudioFormatRecord& record);
    [[nodiscard]] int DecodeWideFlac(void* samples, unsigned maxFrames);
    [[nodiscard]] Step NextFrame();
    [[nodiscard]] Step ReceiveOrFeed();
    [[nodiscard]] bool FeedPacket();
    [[nodiscard]] bool AdaptFrame();
    [[nodiscard]] bool TolerateDamage(int code);
    [[nodiscard]] Step CheckEnd();
    [[nodiscard]] bool LacksPackets() const;
    [[nodiscard]] bool LacksEndMark() const;
    [[nodiscard]] Step Truncated();
    void Describe(AudioFormatRecord& record) const;
    void Fail(const wchar_t* what, int code = 0);

    XString path;
    XString error;
    FileInput input;
    AVFormatContext* container = nullptr;
    AVStream* stream = nullptr; // owned by the container
    AVCodecContext* codec = nullptr;
    AVPacket* packet = nullptr;
    AVFrame* frame = nullptr;
    SwrContext* resampler = nullptr; // only for streams that change their format on the way
    AVFrame* adapted = nullptr;      // what the resampler makes
    AVFrame* current = nullptr;      // frame or adapted; null: none pending
    int offset = 0;                  // frames of `current` already handed out
    int sampleFormat = -1;           // of the first frame, as are the next two
    int frequency = 0;
    int channels = 0;
    SampleLayout layout;
    AudioChecksum checksum;
    std::unique_ptr<WideFlac> wideFlac; // decodes in place of the codec
    bool isProtected = false;
    bool lossless = false;
    bool flushed = false;
    std::uint64_t exactFrames = 0;    // 0: the container does not tell exactly
    std::uint64_t expectedFrames = 0; // what it tells at all
    std::uint64_t delivered = 0;
    unsigned packets = 0;
    unsigned damaged = 0;
    XString endDoubt; // why the end may be missing; empty: no reason
};
