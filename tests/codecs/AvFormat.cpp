// FFmpeg as the tests need it: a file in memory to sound and back.
#include "Sound.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

#include <algorithm>
#include <cstring>

namespace {

struct Reader {
    const Bytes* file;
    int64_t position = 0;

    static int Read(void* self, uint8_t* buffer, int size) {
        auto& reader = *static_cast<Reader*>(self);
        const auto left = static_cast<int64_t>(reader.file->size()) - reader.position;
        const int count = static_cast<int>(std::min<int64_t>(left, size));
        if (count <= 0)
            return AVERROR_EOF;
        std::memcpy(buffer, reader.file->data() + reader.position, static_cast<size_t>(count));
        reader.position += count;
        return count;
    }
    static int64_t Seek(void* self, int64_t offset, int whence) {
        auto& reader = *static_cast<Reader*>(self);
        if (whence == AVSEEK_SIZE)
            return static_cast<int64_t>(reader.file->size());
        return reader.position = whence == SEEK_CUR ? reader.position + offset : offset;
    }
};

float SampleOf(const AVFrame& frame, int channel, int index) {
    const auto format = static_cast<AVSampleFormat>(frame.format);
    const bool planar = av_sample_fmt_is_planar(format) != 0;
    const uint8_t* plane = frame.extended_data[planar ? channel : 0];
    const int at = planar ? index : index * frame.ch_layout.nb_channels + channel;
    switch (av_get_packed_sample_fmt(format)) {
    case AV_SAMPLE_FMT_S16:
        return static_cast<float>(reinterpret_cast<const int16_t*>(plane)[at]) / 32768.0f;
    case AV_SAMPLE_FMT_FLT:
        return reinterpret_cast<const float*>(plane)[at];
    default:
        return 1e9f; // none of the tested files has another
    }
}

void Receive(AVCodecContext* codec, AVFrame* frame, Sound& sound) {
    while (avcodec_receive_frame(codec, frame) == 0) {
        sound.rate = frame->sample_rate;
        for (int i = 0; i < frame->nb_samples; ++i)
            for (int channel = 0; channel < 2; ++channel)
                sound.samples.push_back(SampleOf(*frame, channel, i));
    }
}

void Write(AVCodecContext* codec, AVFormatContext* format, AVPacket* packet) {
    while (avcodec_receive_packet(codec, packet) == 0) {
        av_packet_rescale_ts(packet, codec->time_base, format->streams[0]->time_base);
        av_write_frame(format, packet);
        av_packet_unref(packet);
    }
}

void Fill(AVFrame* frame, const Sound& sound, size_t from) {
    for (int i = 0; i < frame->nb_samples * 2; ++i) {
        const float sample = sound.samples[from * 2 + static_cast<size_t>(i)];
        if (frame->format == AV_SAMPLE_FMT_FLTP)
            reinterpret_cast<float*>(frame->data[i % 2])[i / 2] = sample;
        else
            reinterpret_cast<int16_t*>(frame->data[i % 2])[i / 2] = static_cast<int16_t>(sample * 32768);
    }
}

} // namespace

Sound Decode(const Bytes& file) {
    Sound sound;
    Reader reader{&file};
    constexpr int bufferSize = 4096;
    AVFormatContext* format = avformat_alloc_context();
    format->pb = avio_alloc_context(static_cast<uint8_t*>(av_malloc(bufferSize)), bufferSize, 0, &reader,
                                    Reader::Read, nullptr, Reader::Seek);
    AVIOContext* input = format->pb;
    if (avformat_open_input(&format, "", nullptr, nullptr) == 0 &&
        avformat_find_stream_info(format, nullptr) >= 0) {
        const AVStream* stream = format->streams[0];
        AVCodecContext* codec = avcodec_alloc_context3(nullptr);
        avcodec_parameters_to_context(codec, stream->codecpar);
        codec->pkt_timebase = stream->time_base;
        if (avcodec_open2(codec, avcodec_find_decoder(stream->codecpar->codec_id), nullptr) == 0) {
            AVPacket* packet = av_packet_alloc();
            AVFrame* frame = av_frame_alloc();
            while (av_read_frame(format, packet) == 0) {
                avcodec_send_packet(codec, packet);
                av_packet_unref(packet);
                Receive(codec, frame, sound);
            }
            avcodec_send_packet(codec, nullptr);
            Receive(codec, frame, sound);
            av_frame_free(&frame);
            av_packet_free(&packet);
        }
        avcodec_free_context(&codec);
    }
    avformat_close_input(&format);
    av_freep(&input->buffer);
    avio_context_free(&input);
    return sound;
}

Bytes EncodeByFFmpeg(const Sound& sound, const char* encoder, const char* container) {
    const AVCodec* found = avcodec_find_encoder_by_name(encoder);
    AVFormatContext* format = nullptr;
    if (!found || avformat_alloc_output_context2(&format, nullptr, container, nullptr) < 0)
        return {};
    AVCodecContext* codec = avcodec_alloc_context3(found);
    codec->sample_rate = sound.rate;
    codec->sample_fmt = found->id == AV_CODEC_ID_ALAC ? AV_SAMPLE_FMT_S16P : AV_SAMPLE_FMT_FLTP;
    codec->bit_rate = 256000;
    codec->time_base = {1, sound.rate};
    codec->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    av_channel_layout_default(&codec->ch_layout, 2);
    AVStream* stream = avformat_new_stream(format, nullptr);
    uint8_t* data = nullptr;
    int size = 0;
    if (avcodec_open2(codec, found, nullptr) == 0 && avio_open_dyn_buf(&format->pb) == 0) {
        avcodec_parameters_from_context(stream->codecpar, codec);
        stream->time_base = codec->time_base;
        AVPacket* packet = av_packet_alloc();
        AVFrame* frame = av_frame_alloc();
        const size_t frames = sound.samples.size() / 2;
        const bool opened = avformat_write_header(format, nullptr) >= 0;
        for (size_t from = 0; opened && from < frames; from += static_cast<size_t>(codec->frame_size)) {
            frame->nb_samples =
                static_cast<int>(std::min(frames - from, static_cast<size_t>(codec->frame_size)));
            frame->format = codec->sample_fmt;
            frame->pts = static_cast<int64_t>(from);
            av_channel_layout_copy(&frame->ch_layout, &codec->ch_layout);
            av_frame_get_buffer(frame, 0);
            Fill(frame, sound, from);
            avcodec_send_frame(codec, frame);
            av_frame_unref(frame);
            Write(codec, format, packet);
        }
        avcodec_send_frame(codec, nullptr);
        Write(codec, format, packet);
        if (opened)
            av_write_trailer(format);
        size = avio_close_dyn_buf(format->pb, &data);
        av_frame_free(&frame);
        av_packet_free(&packet);
    }
    const Bytes file(data, data + size);
    av_free(data);
    avcodec_free_context(&codec);
    avformat_free_context(format);
    return file;
}
