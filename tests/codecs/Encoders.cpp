// One file by each encoder library, in memory.
#include "Sound.h"

#include <opusenc.h>
#include <vorbis/vorbisenc.h>
#include <wavpack/wavpack.h>

#include <cmath>

namespace {

void Append(Bytes& to, const void* data, size_t size) {
    const auto* bytes = static_cast<const uint8_t*>(data);
    to.insert(to.end(), bytes, bytes + size);
}

} // namespace

Bytes EncodeVorbis(const Sound& sound) {
    Bytes file;
    vorbis_info info;
    vorbis_info_init(&info);
    if (vorbis_encode_init_vbr(&info, 2, sound.rate, 0.6f) != 0)
        return file;
    vorbis_comment comment;
    vorbis_comment_init(&comment);
    vorbis_dsp_state state;
    vorbis_analysis_init(&state, &info);
    vorbis_block block;
    vorbis_block_init(&state, &block);
    ogg_stream_state stream;
    ogg_stream_init(&stream, 1);
    ogg_packet packets[3];
    vorbis_analysis_headerout(&state, &comment, &packets[0], &packets[1], &packets[2]);
    ogg_page page;
    const auto writePage = [&] {
        Append(file, page.header, static_cast<size_t>(page.header_len));
        Append(file, page.body, static_cast<size_t>(page.body_len));
    };
    for (ogg_packet& packet : packets)
        ogg_stream_packetin(&stream, &packet);
    while (ogg_stream_flush(&stream, &page) != 0)
        writePage();
    const int frames = static_cast<int>(sound.samples.size() / 2);
    float** buffer = vorbis_analysis_buffer(&state, frames);
    for (int i = 0; i < frames * 2; ++i)
        buffer[i % 2][i / 2] = sound.samples[static_cast<size_t>(i)];
    vorbis_analysis_wrote(&state, frames);
    vorbis_analysis_wrote(&state, 0);
    while (vorbis_analysis_blockout(&state, &block) == 1) {
        vorbis_analysis(&block, nullptr);
        vorbis_bitrate_addblock(&block);
        while (vorbis_bitrate_flushpacket(&state, &packets[0]) != 0) {
            ogg_stream_packetin(&stream, &packets[0]);
            while (ogg_stream_pageout(&stream, &page) != 0)
                writePage();
        }
    }
    ogg_stream_clear(&stream);
    vorbis_block_clear(&block);
    vorbis_dsp_clear(&state);
    vorbis_comment_clear(&comment);
    vorbis_info_clear(&info);
    return file;
}

Bytes EncodeOpus(const Sound& sound) {
    Bytes file;
    const OpusEncCallbacks callbacks = {[](void* client, const unsigned char* data, opus_int32 size) {
                                            Append(*static_cast<Bytes*>(client), data,
                                                   static_cast<size_t>(size));
                                            return 0;
                                        },
                                        [](void*) { return 0; }};
    OggOpusComments* comments = ope_comments_create();
    int error = 0;
    OggOpusEnc* encoder = ope_encoder_create_callbacks(&callbacks, &file, comments, sound.rate, 2, 0, &error);
    if (encoder) {
        ope_encoder_write_float(encoder, sound.samples.data(), static_cast<int>(sound.samples.size() / 2));
        ope_encoder_drain(encoder);
        ope_encoder_destroy(encoder);
    }
    ope_comments_destroy(comments);
    return file;
}

Bytes EncodeWavPack(const Sound& sound) {
    Bytes file;
    const WavpackBlockOutput write = [](void* id, void* data, int32_t size) {
        Append(*static_cast<Bytes*>(id), data, static_cast<size_t>(size));
        return 1;
    };
    std::vector<int32_t> samples;
    for (float sample : sound.samples)
        samples.push_back(static_cast<int32_t>(std::lround(sample * 32768)));
    WavpackConfig config = {};
    config.bits_per_sample = 16;
    config.bytes_per_sample = 2;
    config.num_channels = 2;
    config.channel_mask = 3;
    config.sample_rate = sound.rate;
    WavpackContext* context = WavpackOpenFileOutput(write, &file, nullptr);
    const auto frames = static_cast<uint32_t>(samples.size() / 2);
    if (WavpackSetConfiguration64(context, &config, frames, nullptr) && WavpackPackInit(context)) {
        WavpackPackSamples(context, samples.data(), frames);
        WavpackFlushSamples(context);
    }
    WavpackCloseFile(context);
    return file;
}
