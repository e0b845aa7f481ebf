#include "plugins/encoder/M4aFile.h"

#include "plugins/common/PcmFormat.h"
#include "plugins/encoder/Mp4Tags.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <vector>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/opt.h>
}

namespace {

constexpr int ioBytes = 32 * 1024;
constexpr std::uint32_t backBits = 0x30, sideBits = 0x600;

// Speakers at the side stand for those behind where there is one pair.
std::uint32_t BackPlaces(std::uint32_t mask) noexcept {
    const bool isOnePair = (mask & sideBits) == sideBits && (mask & ~sideBits & ~std::uint32_t(0xF)) == 0;
    return isOnePair ? (mask & ~sideBits) | backBits : mask;
}

struct FreeCodec {
    void operator()(AVCodecContext* codec) const noexcept { avcodec_free_context(&codec); }
};
struct FreeMuxer {
    void operator()(AVFormatContext* muxer) const noexcept { avformat_free_context(muxer); }
};
struct FreeFrame {
    void operator()(AVFrame* frame) const noexcept { av_frame_free(&frame); }
};
struct FreePacket {
    void operator()(AVPacket* packet) const noexcept { av_packet_free(&packet); }
};
struct FreeIo {
    void operator()(AVIOContext* io) const noexcept {
        av_freep(&io->buffer);
        avio_context_free(&io);
    }
};

} // namespace

struct M4aFile::Engine {
    std::unique_ptr<AVIOContext, FreeIo> io;
    std::unique_ptr<AVCodecContext, FreeCodec> codec;
    std::unique_ptr<AVFormatContext, FreeMuxer> muxer;
    std::unique_ptr<AVFrame, FreeFrame> frame;
    std::unique_ptr<AVPacket, FreePacket> packet;
    int filled = 0;                       // frames of audio in `frame`
    std::vector<std::vector<float>> past; // of AAC, per channel: the last frame sent and what is filled
};

// The index is kept in memory until its tags are in it.
struct M4aFile::Calls {
    static int Write(void* self, std::uint8_t* bytes, int size) {
        M4aFile& owner = *static_cast<M4aFile*>(self);
        const std::size_t count = static_cast<std::size_t>(size);
        if (owner.indexAt > 0 && owner.position >= owner.indexAt) {
            const std::size_t at = static_cast<std::size_t>(owner.position - owner.indexAt);
            owner.index.resize(std::max(owner.index.size(), at + count));
            std::memcpy(owner.index.data() + at, bytes, count);
        } else if ((owner.file.Position() != owner.position && !owner.file.Seek(owner.position)) ||
                   !owner.file.Write(bytes, count)) {
            return AVERROR(EIO);
        }
        owner.position += count;
        owner.furthest = std::max(owner.furthest, owner.position);
        return size;
    }
    static std::int64_t Seek(void* self, std::int64_t offset, int whence) {
        M4aFile& owner = *static_cast<M4aFile*>(self);
        if (whence & AVSEEK_SIZE)
            return static_cast<std::int64_t>(owner.furthest);
        if ((whence & ~AVSEEK_FORCE) != SEEK_SET || offset < 0)
            return AVERROR(EINVAL);
        owner.position = static_cast<std::uint64_t>(offset);
        return offset;
    }
};

M4aFile::M4aFile() = default;
M4aFile::~M4aFile() {
    Abandon();
}

bool M4aFile::Fail(const wchar_t* doing, int code) {
    if (file.HasFailed()) {
        error = file.Error();
        return false;
    }
    char text[AV_ERROR_MAX_STRING_SIZE] = "";
    av_strerror(code, text, sizeof text);
    XString reason;
    reason.Assign(text);
    error =
        XString(audio.codec == M4aCodec::alac ? L"ALAC" : L"AAC") + L" failed at " + doing + L": " + reason;
    return false;
}

bool M4aFile::TryCodec(std::uint32_t mask) {
    const bool isAlac = audio.codec == M4aCodec::alac;
    const AVCodec* encoder = avcodec_find_encoder(isAlac ? AV_CODEC_ID_ALAC : AV_CODEC_ID_AAC);
    std::unique_ptr<AVCodecContext, FreeCodec> codec(encoder ? avcodec_alloc_context3(encoder) : nullptr);
    if (!codec || av_channel_layout_from_mask(&codec->ch_layout, mask) < 0)
        return false;
    codec->sample_rate = static_cast<int>(audio.frequency);
    codec->time_base = {1, codec->sample_rate};
    codec->sample_fmt = !isAlac           ? AV_SAMPLE_FMT_FLTP
                        : audio.bits > 16 ? AV_SAMPLE_FMT_S32P
                                          : AV_SAMPLE_FMT_S16P;
    codec->bits_per_raw_sample = isAlac ? audio.bits : 0;
    codec->bit_rate = audio.bitRate;
    codec->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    if (avcodec_open2(codec.get(), encoder, nullptr) < 0)
        return false;
    engine->codec = std::move(codec);
    return true;
}

bool M4aFile::OpenCodec() {
    const std::uint32_t usual = UsualChannelMask(audio.channels);
    const std::uint32_t wanted = audio.channelMask ? audio.channelMask : usual;
    hasOtherPlaces = false;
    if (TryCodec(BackPlaces(wanted)) || TryCodec(wanted))
        return true;
    hasOtherPlaces = audio.channelMask != 0;
    if (TryCodec(usual))
        return true;
    // The places of its own that the encoder has for so many channels.
    const AVCodec* encoder =
        avcodec_find_encoder(audio.codec == M4aCodec::alac ? AV_CODEC_ID_ALAC : AV_CODEC_ID_AAC);
    for (const AVChannelLayout* own = encoder ? encoder->ch_layouts : nullptr; own && own->nb_channels; ++own)
        if (own->nb_channels == audio.channels && TryCodec(static_cast<std::uint32_t>(own->u.mask)))
            return true;
    return Fail(L"the start", AVERROR(EINVAL));
}

bool M4aFile::OpenMuxer() {
    AVFormatContext* made = nullptr;
    const int allocated = avformat_alloc_output_context2(&made, nullptr, "ipod", nullptr);
    engine->muxer.reset(made);
    std::uint8_t* buffer = allocated < 0 ? nullptr : static_cast<std::uint8_t*>(av_malloc(ioBytes));
    if (!buffer)
        return Fail(L"the start", allocated < 0 ? allocated : AVERROR(ENOMEM));
    engine->io.reset(avio_alloc_context(buffer, ioBytes, 1, this, nullptr, Calls::Write, Calls::Seek));
    if (!engine->io) {
        av_free(buffer);
        return Fail(L"the start", AVERROR(ENOMEM));
    }
    AVStream* stream = avformat_new_stream(made, nullptr);
    if (!stream)
        return Fail(L"the start", AVERROR(ENOMEM));
    made->pb = engine->io.get();
    made->flags |= AVFMT_FLAG_BITEXACT; // no name of the muxer among the tags
    stream->time_base = engine->codec->time_base;
    const int copied = avcodec_parameters_from_context(stream->codecpar, engine->codec.get());
    // In its usual milliseconds the edit list could not tell the length to the frame.
    av_opt_set_int(made->priv_data, "movie_timescale", engine->codec->sample_rate, 0);
    const int begun = copied < 0 ? copied : avformat_write_header(made, nullptr);
    return begun >= 0 || Fail(L"the start of the file", begun);
}

bool M4aFile::Open(const wchar_t* path, const M4aAudio& newAudio) {
    Abandon();
    av_log_set_level(AV_LOG_QUIET); // what goes wrong is told by Error
    audio = newAudio;
    error.Clear();
    index.clear();
    position = furthest = indexAt = framesTaken = packets = 0;
    engine = std::make_unique<Engine>();
    if (!OpenCodec())
        return false;
    if (!file.Create(path)) {
        error = file.Error();
        return false;
    }
    engine->packet.reset(av_packet_alloc());
    engine->frame.reset(av_frame_alloc());
    if (!engine->packet || !engine->frame)
        return Fail(L"the start", AVERROR(ENOMEM));
    AVFrame& frame = *engine->frame;
    frame.format = engine->codec->sample_fmt;
    frame.nb_samples = engine->codec->frame_size;
    frame.sample_rate = engine->codec->sample_rate;
    int made = av_channel_layout_copy(&frame.ch_layout, &engine->codec->ch_layout);
    if (audio.codec == M4aCodec::aac)
        engine->past.resize(static_cast<std::size_t>(audio.channels));
    if (made >= 0)
        made = av_frame_get_buffer(&frame, 0);
    return made >= 0 ? OpenMuxer() : Fail(L"the start", made);
}

// Hands the frame, or with none the end, to the encoder, and what it gives to the muxer.
bool M4aFile::Encode(AVFrame* frame, std::int64_t at) {
    if (frame)
        frame->pts = at;
    int code = avcodec_send_frame(engine->codec.get(), frame);
    AVPacket* packet = engine->packet.get();
    while (code >= 0 && (code = avcodec_receive_packet(engine->codec.get(), packet)) >= 0) {
        const std::int64_t left = static_cast<std::int64_t>(framesTaken) - packet->pts;
        if (left <= 0) { // it holds nothing but what follows the audio
            av_packet_unref(packet);
            continue;
        }
        ++packets;
        packet->stream_index = 0;
        packet->duration = std::min(packet->duration, left);
        av_packet_rescale_ts(packet, engine->codec->time_base, engine->muxer->streams[0]->time_base);
        code = av_write_frame(engine->muxer.get(), packet);
        av_packet_unref(packet);
        if (code >= 0 && engine->io->error < 0)
            code = engine->io->error;
    }
    return code == AVERROR(EAGAIN) || (!frame && code == AVERROR_EOF) || Fail(L"encoding", code);
}

// A frame of `past`, from its sample `from` on; what lies outside is its mirror image.
bool M4aFile::EncodeMirrored(std::int64_t from, std::int64_t at) {
    AVFrame* frame = engine->frame.get();
    frame->nb_samples = engine->codec->frame_size;
    const int writable = av_frame_make_writable(frame);
    if (writable < 0)
        return Fail(L"encoding", writable);
    for (std::size_t channel = 0; channel < engine->past.size(); ++channel) {
        const std::vector<float>& past = engine->past[channel];
        const std::int64_t last = static_cast<std::int64_t>(past.size()) - 1;
        float* out = reinterpret_cast<float*>(frame->extended_data[channel]);
        for (int i = 0; i < frame->nb_samples; ++i) {
            const std::int64_t there = last > 0 ? std::abs(from + i) % (2 * last) : 0;
            out[i] = past[static_cast<std::size_t>(std::min(there, 2 * last - there))];
        }
    }
    return Encode(frame, at);
}

void M4aFile::KeepPast() {
    const std::size_t kept = static_cast<std::size_t>(engine->codec->frame_size);
    for (std::size_t channel = 0; channel < engine->past.size(); ++channel) {
        std::vector<float>& past = engine->past[channel];
        if (past.size() > kept)
            past.erase(past.begin(), past.end() - static_cast<std::ptrdiff_t>(kept));
        const float* in = reinterpret_cast<const float*>(engine->frame->extended_data[channel]);
        past.insert(past.end(), in, in + engine->filled);
    }
}

// Takes the filled frame. AAC codes each frame together with its neighbours, so audio that begins or ends
// at once would sound there, and joined files would click: it gets its mirror image on both sides, which
// players cut off.
bool M4aFile::Send() {
    const std::int64_t at = static_cast<std::int64_t>(framesTaken);
    const std::int64_t whole = engine->codec->frame_size;
    framesTaken += static_cast<std::uint64_t>(engine->filled);
    if (engine->past.empty()) {
        engine->frame->nb_samples = std::exchange(engine->filled, 0);
        return Encode(engine->frame.get(), at);
    }
    KeepPast();
    engine->filled = 0;
    const std::int64_t from =
        static_cast<std::int64_t>(engine->past[0].size()) - (static_cast<std::int64_t>(framesTaken) - at);
    return (at > 0 || EncodeMirrored(-whole, -whole)) && EncodeMirrored(from, at);
}

bool M4aFile::SendEnd() {
    if (engine->filled > 0 && !Send())
        return false;
    if (!engine->past.empty()) {
        const std::int64_t whole = engine->codec->frame_size;
        const std::int64_t coded = (static_cast<std::int64_t>(framesTaken) + whole - 1) / whole * whole;
        const std::int64_t behind = coded - static_cast<std::int64_t>(framesTaken);
        if (!EncodeMirrored(static_cast<std::int64_t>(engine->past[0].size()) + behind, coded))
            return false;
    }
    return Encode(nullptr, 0);
}

void M4aFile::Fill(const void* samples, std::uint32_t frames) {
    const AVFrame& frame = *engine->frame;
    const std::size_t channels = static_cast<std::size_t>(audio.channels);
    for (std::size_t channel = 0; channel < channels; ++channel) {
        const std::int32_t* in = static_cast<const std::int32_t*>(samples) + channel; // or floats, as wide
        std::uint8_t* plane = frame.extended_data[channel];
        const std::size_t at = static_cast<std::size_t>(engine->filled);
        if (frame.format == AV_SAMPLE_FMT_S16P) {
            std::int16_t* out = reinterpret_cast<std::int16_t*>(plane) + at;
            for (std::uint32_t i = 0; i < frames; ++i)
                out[i] = static_cast<std::int16_t>(in[i * channels]);
            continue;
        }
        std::int32_t* out = reinterpret_cast<std::int32_t*>(plane) + at;
        const int shift = frame.format == AV_SAMPLE_FMT_S32P ? 32 - audio.bits : 0;
        for (std::uint32_t i = 0; i < frames; ++i)
            out[i] = static_cast<std::int32_t>(static_cast<std::uint32_t>(in[i * channels]) << shift);
    }
    engine->filled += static_cast<int>(frames);
}

bool M4aFile::Write(const void* samples, std::uint32_t frames) {
    if (!engine || !engine->muxer)
        return Fail(L"encoding", AVERROR(EINVAL));
    const unsigned char* at = static_cast<const unsigned char*>(samples);
    const int whole = engine->codec->frame_size;
    while (frames > 0) {
        engine->frame->nb_samples = whole;
        // The encoder may still hold what was sent last.
        const int writable = engine->filled > 0 ? 0 : av_frame_make_writable(engine->frame.get());
        if (writable < 0)
            return Fail(L"encoding", writable);
        const std::uint32_t run = std::min(frames, static_cast<std::uint32_t>(whole - engine->filled));
        Fill(at, run);
        at += std::size_t(run) * static_cast<std::size_t>(audio.channels) * 4;
        frames -= run;
        if (engine->filled == whole && !Send())
            return false;
    }
    return true;
}

bool M4aFile::WriteIndex(ByteVector items) {
    const std::uint64_t whole = static_cast<std::uint64_t>(engine->codec->frame_size);
    const std::uint64_t delay = whole + static_cast<std::uint64_t>(engine->codec->initial_padding);
    const std::uint64_t coded = packets * whole;
    if (!engine->past.empty() && coded >= delay + framesTaken) {
        const std::string text = GaplessText(delay, coded - delay - framesTaken, framesTaken);
        const ByteVector item = BuildMp4FreeItem("iTunSMPB", text);
        items.insert(items.end(), item.begin(), item.end());
    }
    avio_flush(engine->io.get());
    indexAt = position;
    int code = av_write_trailer(engine->muxer.get());
    avio_flush(engine->io.get());
    if (code >= 0 && engine->io->error < 0)
        code = engine->io->error;
    if (code >= 0 && !PutMp4Items(index, items))
        code = AVERROR_INVALIDDATA;
    if (code < 0)
        return Fail(L"the end of the file", code);
    if (!file.Seek(indexAt) || !file.Write(index.data(), index.size()) || !file.Close()) {
        error = file.Error();
        return false;
    }
    return true;
}

bool M4aFile::Finish(ByteVector items) {
    static constexpr std::int32_t silence[8] = {};
    if (!engine || !engine->muxer)
        return Fail(L"the end", AVERROR(EINVAL));
    if (framesTaken == 0 && engine->filled == 0 && !Write(silence, 1))
        return false;
    const bool done = SendEnd() && WriteIndex(std::move(items));
    engine.reset();
    return done;
}

void M4aFile::Abandon() noexcept {
    file.Abandon(); // before the engine, which must not write any more
    engine.reset();
}
