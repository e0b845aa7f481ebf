#include "plugins/decoder/WideFlac.h"

#include <FLAC/stream_decoder.h>

#include <algorithm>

struct WideFlac::Callbacks {
    static FLAC__StreamDecoderReadStatus Read(const FLAC__StreamDecoder*, FLAC__byte* buffer,
                                              std::size_t* bytes, void* self) noexcept {
        const int got = static_cast<WideFlac*>(self)->input.Read(
            buffer, static_cast<unsigned>(std::min<std::size_t>(*bytes, 1u << 20)));
        *bytes = got > 0 ? static_cast<std::size_t>(got) : 0;
        if (got < 0)
            return FLAC__STREAM_DECODER_READ_STATUS_ABORT;
        return got == 0 ? FLAC__STREAM_DECODER_READ_STATUS_END_OF_STREAM
                        : FLAC__STREAM_DECODER_READ_STATUS_CONTINUE;
    }

    static FLAC__StreamDecoderWriteStatus Write(const FLAC__StreamDecoder*, const FLAC__Frame* frame,
                                                const FLAC__int32* const channels[], void* self) noexcept {
        WideFlac& stream = *static_cast<WideFlac*>(self);
        if (frame->header.channels != stream.info.channels)
            return FLAC__STREAM_DECODER_WRITE_STATUS_ABORT;
        try {
            stream.pending.resize(static_cast<std::size_t>(frame->header.blocksize) * stream.info.channels);
        } catch (...) {
            return FLAC__STREAM_DECODER_WRITE_STATUS_ABORT;
        }
        stream.taken = 0;
        for (unsigned channel = 0; channel < stream.info.channels; ++channel)
            for (unsigned i = 0; i < frame->header.blocksize; ++i)
                stream.pending[static_cast<std::size_t>(i) * stream.info.channels + channel] =
                    channels[channel][i];
        return FLAC__STREAM_DECODER_WRITE_STATUS_CONTINUE;
    }

    static void Metadata(const FLAC__StreamDecoder*, const FLAC__StreamMetadata* block, void* self) noexcept {
        if (block->type != FLAC__METADATA_TYPE_STREAMINFO)
            return;
        const FLAC__StreamMetadata_StreamInfo& from = block->data.stream_info;
        static_cast<WideFlac*>(self)->info = {from.channels, from.sample_rate, from.bits_per_sample,
                                              from.total_samples};
    }

    static void Error(const FLAC__StreamDecoder*, FLAC__StreamDecoderErrorStatus, void* self) noexcept {
        static_cast<WideFlac*>(self)->damaged = true;
    }
};

WideFlac::WideFlac() : decoder(FLAC__stream_decoder_new()) {}

WideFlac::~WideFlac() {
    if (decoder)
        FLAC__stream_decoder_delete(static_cast<FLAC__StreamDecoder*>(decoder));
}

bool WideFlac::Start() {
    auto* flac = static_cast<FLAC__StreamDecoder*>(decoder);
    return flac && FLAC__stream_decoder_set_md5_checking(flac, true) &&
           FLAC__stream_decoder_init_stream(flac, Callbacks::Read, nullptr, nullptr, nullptr, nullptr,
                                            Callbacks::Write, Callbacks::Metadata, Callbacks::Error,
                                            this) == FLAC__STREAM_DECODER_INIT_STATUS_OK &&
           FLAC__stream_decoder_process_until_end_of_metadata(flac) && !damaged && info.channels > 0 &&
           info.frequency > 0;
}

std::unique_ptr<WideFlac> WideFlac::OpenIfWide(const XString& path) {
    auto stream = std::make_unique<WideFlac>();
    XString error;
    unsigned char head[21]; // up to the depth in the stream's description
    if (!stream->input.Open(path, error) || stream->input.Read(head, sizeof head) != sizeof head)
        return nullptr;
    const bool isFlac = head[0] == 'f' && head[1] == 'L' && head[2] == 'a' && head[3] == 'C';
    const unsigned bits = ((head[20] & 1u) << 4) + 1; // the depth's top bit: 17 and up when set
    if (!isFlac || bits < 17 || !stream->input.Rewind() || !stream->Start() || stream->info.bits <= 24)
        return nullptr;
    return stream;
}

int WideFlac::Decode(std::int32_t* out, unsigned maxFrames) {
    auto* flac = static_cast<FLAC__StreamDecoder*>(decoder);
    const std::size_t wanted = static_cast<std::size_t>(maxFrames) * info.channels;
    std::size_t done = 0;
    while (done < wanted && !damaged) {
        if (taken == pending.size()) {
            pending.clear();
            taken = 0;
            if (!FLAC__stream_decoder_process_single(flac))
                damaged = true;
            else if (pending.empty() &&
                     FLAC__stream_decoder_get_state(flac) == FLAC__STREAM_DECODER_END_OF_STREAM)
                break;
            continue;
        }
        const std::size_t count = std::min(wanted - done, pending.size() - taken);
        std::copy_n(pending.data() + taken, count, out + done);
        taken += count;
        done += count;
    }
    const bool atEnd = done < wanted && !damaged;
    if (atEnd && done == 0 && !FLAC__stream_decoder_finish(flac))
        wrongChecksum = true;
    if (damaged || wrongChecksum)
        return -1;
    return static_cast<int>(done / info.channels);
}
