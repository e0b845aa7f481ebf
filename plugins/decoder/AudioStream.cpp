#include "plugins/decoder/AudioStream.h"

#include "plugins/decoder/WaveLength.h"

#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/opt.h>
#include <libswresample/swresample.h>
}

namespace {

// Text that stands around streams (tags at the end, a torn first frame) costs a lossy stream a few
// packets; more than this share of them is damage that one hears.
constexpr unsigned toleratedDamagePercent = 2;
constexpr unsigned toleratedDamageFloor = 3;

void ToUtf8(const XString& text, char* out, int size) {
    if (WideCharToMultiByte(CP_UTF8, 0, text, -1, out, size, nullptr, nullptr) == 0)
        out[0] = 0;
}

constexpr wchar_t wrongChecksum[] =
    L"The source is damaged: its audio does not match the MD5 checksum that it holds of it";
constexpr int streamInfoBytes = 34; // of FLAC, the checksum last

bool Is(const char* name, const char* wanted) {
    return std::strcmp(name, wanted) == 0;
}

// Containers of these codecs tell the number of frames to the frame.
bool TellsExactLength(const AVCodecParameters& parameters) {
    switch (parameters.codec_id) {
    case AV_CODEC_ID_FLAC:
    case AV_CODEC_ID_ALAC:
    case AV_CODEC_ID_APE:
    case AV_CODEC_ID_TTA:
    case AV_CODEC_ID_WAVPACK:
    case AV_CODEC_ID_TAK:
        return true;
    default:
        return parameters.codec_id >= AV_CODEC_ID_FIRST_AUDIO &&
               parameters.codec_id < AV_CODEC_ID_ADPCM_IMA_QT;
    }
}

} // namespace

void AudioStream::Fail(const wchar_t* what, int code) {
    error = what;
    if (code == 0)
        return;
    char text[AV_ERROR_MAX_STRING_SIZE] = "";
    av_strerror(code, text, sizeof text);
    error += L": ";
    error += XString(text);
}

bool AudioStream::OpenContainer() {
    XString reason;
    if (!input.Open(path, reason)) {
        error = L"Unable to open the source: " + reason;
        return false;
    }
    container = avformat_alloc_context();
    if (!container)
        return false;
    container->pb = input.Context();
    container->flags |= AVFMT_FLAG_CUSTOM_IO;
    char name[2048];
    ToUtf8(path, name, sizeof name); // only its extension counts, as a hint
    const int opened = avformat_open_input(&container, name, nullptr, nullptr);
    if (opened < 0) {
        Fail(L"Unsupported or damaged source", opened);
        return false;
    }
    const int found = avformat_find_stream_info(container, nullptr);
    if (found < 0) {
        Fail(L"Unsupported or damaged source", found);
        return false;
    }
    const int index = av_find_best_stream(container, AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0);
    if (index < 0) {
        Fail(L"The source holds no audio");
        return false;
    }
    stream = container->streams[index];
    for (unsigned i = 0; i < container->nb_streams; ++i)
        if (static_cast<int>(i) != index)
            container->streams[i]->discard = AVDISCARD_ALL;
    return true;
}

bool AudioStream::OpenCodec() {
    const AVCodec* decoder = avcodec_find_decoder(stream->codecpar->codec_id);
    if (!decoder) {
        error = L"Unsupported audio format: ";
        error += XString(avcodec_get_name(stream->codecpar->codec_id));
        return false;
    }
    codec = avcodec_alloc_context3(decoder);
    packet = av_packet_alloc();
    frame = av_frame_alloc();
    if (!codec || !packet || !frame)
        return false;
    const int copied = avcodec_parameters_to_context(codec, stream->codecpar);
    codec->pkt_timebase = stream->time_base;
    const AVCodecDescriptor* descriptor = avcodec_descriptor_get(codec->codec_id);
    lossless = descriptor && (descriptor->props & AV_CODEC_PROP_LOSSLESS);
    if (lossless) // damage in a lossless stream is told, never papered over
        codec->err_recognition |= AV_EF_CRCCHECK | AV_EF_EXPLODE;
    const int opened = copied < 0 ? copied : avcodec_open2(codec, decoder, nullptr);
    if (opened < 0) {
        Fail(L"Unable to start decoding", opened);
        return false;
    }
    return true;
}

// How many frames the container tells, and whether it can be relied on.
void AudioStream::LearnLength() {
    const AVCodecParameters& parameters = *stream->codecpar;
    if (Is(container->iformat->name, "wav") && TellsExactLength(parameters) && parameters.block_align > 0) {
        FileInput header;
        XString ignored;
        if (header.Open(path, ignored))
            expectedFrames = PromisedWaveBytes(header) / static_cast<unsigned>(parameters.block_align);
        exactFrames = expectedFrames;
    }
    const bool known = container->duration_estimation_method != AVFMT_DURATION_FROM_BITRATE;
    if (expectedFrames || !known || stream->duration <= 0 || parameters.sample_rate <= 0)
        return;
    const AVRational perFrame{1, parameters.sample_rate};
    expectedFrames = static_cast<std::uint64_t>(
        std::max<std::int64_t>(0, av_rescale_q(stream->duration, stream->time_base, perFrame)));
    const bool fine = stream->time_base.num == 1 && stream->time_base.den % parameters.sample_rate == 0;
    if (fine && TellsExactLength(parameters))
        exactFrames = expectedFrames;
}

// The decoder cuts off what an AAC encoder puts in front, but not what fills the last packet. M4A files may
// tell both, and the length between them; they are believed if together they are the packets' frames.
// Streams that decode to twice their frames (SBR) tell other numbers.
void AudioStream::LearnGaplessLength() {
    constexpr std::uint64_t packetFrames = 1024;
    const AVDictionaryEntry* entry = av_dict_get(container->metadata, "iTunSMPB", nullptr, 0);
    if (!entry || !current || stream->codecpar->codec_id != AV_CODEC_ID_AAC ||
        codec->profile != FF_PROFILE_AAC_LOW || frequency != stream->codecpar->sample_rate)
        return;
    char* at = entry->value;
    std::strtoull(at, &at, 16);
    const std::uint64_t delay = std::strtoull(at, &at, 16);
    const std::uint64_t padding = std::strtoull(at, &at, 16);
    const std::uint64_t frames = std::strtoull(at, &at, 16);
    const std::uint64_t coded = static_cast<std::uint64_t>(stream->nb_frames) * packetFrames;
    if (frames > 0 && frames <= coded && delay <= coded && padding <= coded &&
        delay + padding + frames == coded)
        exactFrames = expectedFrames = frames;
}

void AudioStream::LearnChecksum() {
    const AVCodecParameters& parameters = *stream->codecpar;
    if (current && parameters.codec_id == AV_CODEC_ID_FLAC && Is(container->iformat->name, "flac") &&
        parameters.extradata_size >= streamInfoBytes)
        checksum.Expect(parameters.extradata + streamInfoBytes - Md5::digestBytes, layout.bits, channels);
}

bool AudioStream::OpenWideFlac(AudioFormatRecord& record) {
    wideFlac = WideFlac::OpenIfWide(path);
    if (!wideFlac)
        return false;
    const WideFlac::Info& info = wideFlac->Format();
    lossless = true;
    channels = static_cast<int>(info.channels);
    frequency = static_cast<int>(info.frequency);
    exactFrames = expectedFrames = info.frames;
    record = AudioFormatRecord{};
    record.sampleKind = ztSampleInteger;
    record.channels = static_cast<std::uint16_t>(info.channels);
    record.frequency = info.frequency;
    if (stream->codecpar->ch_layout.order == AV_CHANNEL_ORDER_NATIVE)
        record.channelMask = static_cast<std::uint32_t>(stream->codecpar->ch_layout.u.mask);
    record.sampleBytes = 4;
    record.bitsPerSample = static_cast<std::uint16_t>(info.bits);
    record.flags = ztFormatLossless | (info.frames ? ztFormatExactLength : 0u);
    record.frameCount = info.frames;
    record.lengthMs = (info.frames * 1000 + info.frequency / 2) / info.frequency;
    return true;
}

bool AudioStream::Open(const XString& source, AudioFormatRecord& record) {
    Close();
    path = source;
    error.Clear();
    if (OpenContainer() && stream->codecpar->codec_id == AV_CODEC_ID_FLAC && OpenWideFlac(record))
        return true;
    if (!stream || !OpenCodec()) {
        if (error.IsEmpty())
            error = L"Out of memory";
        return false;
    }
    LearnLength();
    const Step first = NextFrame();
    if (first == Step::damage)
        return false;
    if (first == Step::end && (codec->sample_rate <= 0 || codec->ch_layout.nb_channels <= 0)) {
        Fail(L"The source holds no audio");
        return false;
    }
    LearnGaplessLength();
    LearnChecksum();
    Describe(record);
    return true;
}

void AudioStream::Describe(AudioFormatRecord& record) const {
    record = AudioFormatRecord{};
    const bool hasFrame = current != nullptr;
    const SampleLayout shown = hasFrame ? layout : LayoutOf(codec->sample_fmt, codec->bits_per_raw_sample);
    const AVChannelLayout& speakers = hasFrame ? current->ch_layout : codec->ch_layout;
    record.sampleKind = shown.isFloat ? ztSampleFloat : ztSampleInteger;
    record.channels = static_cast<std::uint16_t>(speakers.nb_channels);
    record.frequency = static_cast<std::uint32_t>(hasFrame ? frequency : codec->sample_rate);
    if (speakers.order == AV_CHANNEL_ORDER_NATIVE)
        record.channelMask = static_cast<std::uint32_t>(speakers.u.mask);
    record.sampleBytes = 4;
    record.bitsPerSample = static_cast<std::uint16_t>(shown.bits);
    const std::int64_t rate =
        stream->codecpar->bit_rate > 0 ? stream->codecpar->bit_rate : container->bit_rate;
    record.bitRate = static_cast<std::uint32_t>(std::clamp<std::int64_t>(rate, 0, 0xffffffff));
    record.flags = (lossless ? ztFormatLossless : 0u) | (exactFrames ? ztFormatExactLength : 0u);
    record.frameCount = expectedFrames;
    std::int64_t lengthUs = 0;
    if (expectedFrames)
        lengthUs = av_rescale(static_cast<std::int64_t>(expectedFrames), AV_TIME_BASE,
                              std::max(1, codec->sample_rate));
    else if (container->duration > 0)
        lengthUs = container->duration;
    record.lengthMs = static_cast<std::uint64_t>((lengthUs + 500) / 1000);
    if (!record.frameCount)
        record.frameCount = static_cast<std::uint64_t>(av_rescale(lengthUs, record.frequency, AV_TIME_BASE));
}

void AudioStream::Close() noexcept {
    checksum.Stop();
    wideFlac.reset();
    swr_free(&resampler);
    av_frame_free(&adapted);
    av_frame_free(&frame);
    av_packet_free(&packet);
    avcodec_free_context(&codec);
    avformat_close_input(&container); // leaves the bytes' context to `input`
    input.Close();
    stream = nullptr;
    current = nullptr;
    offset = 0;
    sampleFormat = -1;
    flushed = lossless = false;
    exactFrames = expectedFrames = delivered = 0;
    packets = damaged = 0;
}

bool AudioStream::TolerateDamage(int code) {
    ++damaged;
    const unsigned allowed = std::max(toleratedDamageFloor, packets * toleratedDamagePercent / 100);
    if (!lossless && damaged <= allowed)
        return true;
    Fail(L"The source is damaged", code);
    return false;
}

// Hands one packet, or the end, to the codec. False on damage.
bool AudioStream::FeedPacket() {
    while (!flushed) {
        const int read = av_read_frame(container, packet);
        if (read < 0) {
            flushed = true;
            if (input.HadReadError()) {
                Fail(L"Unable to read the source", read);
                return false;
            }
            if (read != AVERROR_EOF && !TolerateDamage(read))
                return false;
            avcodec_send_packet(codec, nullptr);
            return true;
        }
        const bool ours = packet->stream_index == stream->index;
        const int sent = ours ? avcodec_send_packet(codec, packet) : 0;
        packets += ours;
        av_packet_unref(packet);
        if (sent < 0 && sent != AVERROR(EAGAIN) && !TolerateDamage(sent))
            return false;
        if (ours)
            return true;
    }
    return true;
}

AudioStream::Step AudioStream::ReceiveOrFeed() {
    for (;;) {
        const int received = avcodec_receive_frame(codec, frame);
        if (received == 0) {
            if (frame->nb_samples > 0)
                return Step::frame;
        } else if (received == AVERROR_EOF || (received == AVERROR(EAGAIN) && flushed)) {
            return CheckEnd();
        } else {
            const bool goesOn = received == AVERROR(EAGAIN) || TolerateDamage(received);
            if (!goesOn || !FeedPacket())
                return Step::damage;
        }
    }
}

// Fewer frames than the container told are a truncated file; estimates get a second of doubt, and so do
// streams of which a damaged packet may be passed over.
AudioStream::Step AudioStream::CheckEnd() {
    const bool isSure = exactFrames && stream->codecpar->codec_id != AV_CODEC_ID_AAC;
    const std::uint64_t doubt = isSure ? 0 : static_cast<std::uint64_t>(stream->codecpar->sample_rate);
    if (delivered + doubt >= expectedFrames)
        return Step::end;
    error.Format(L"The source is truncated: it ends after %s of %s frames", UnsignedText(delivered).Text(),
                 UnsignedText(expectedFrames).Text());
    return Step::damage;
}

// A stream that changes rate, channels or sample format on the way is brought back to its first.
bool AudioStream::AdaptFrame() {
    current = frame;
    if (sampleFormat < 0) {
        sampleFormat = frame->format;
        frequency = frame->sample_rate;
        channels = frame->ch_layout.nb_channels;
        layout = LayoutOf(frame->format, codec->bits_per_raw_sample);
        return true;
    }
    if (frame->format == sampleFormat && frame->sample_rate == frequency &&
        frame->ch_layout.nb_channels == channels)
        return true;
    if (!adapted)
        adapted = av_frame_alloc();
    if (!adapted)
        return false;
    av_frame_unref(adapted);
    adapted->format = sampleFormat;
    adapted->sample_rate = frequency;
    av_channel_layout_default(&adapted->ch_layout, channels);
    if (!resampler) {
        resampler = swr_alloc();
        if (!resampler || swr_config_frame(resampler, adapted, frame) < 0 || swr_init(resampler) < 0)
            return false;
    }
    int converted = swr_convert_frame(resampler, adapted, frame);
    if (converted == AVERROR_INPUT_CHANGED) { // it changed once more
        swr_free(&resampler);
        return AdaptFrame();
    }
    current = adapted;
    checksum.Stop();
    return converted >= 0;
}

AudioStream::Step AudioStream::NextFrame() {
    current = nullptr;
    offset = 0;
    do {
        const Step step = ReceiveOrFeed();
        if (step != Step::frame)
            return step;
        if (!AdaptFrame()) {
            current = nullptr;
            Fail(L"The source changes its audio format in a way that can't be followed");
            return Step::damage;
        }
    } while (current->nb_samples <= 0);
    return Step::frame;
}

int AudioStream::DecodeWideFlac(void* samples, unsigned maxFrames) {
    const int done = wideFlac->Decode(static_cast<std::int32_t*>(samples), maxFrames);
    if (done > 0)
        delivered += static_cast<unsigned>(done);
    else if (done < 0)
        Fail(wideFlac->HasWrongChecksum() ? wrongChecksum : L"The source is damaged");
    else if (CheckEnd() == Step::damage)
        return -1;
    return done;
}

int AudioStream::Decode(void* samples, unsigned maxFrames) {
    if (wideFlac)
        return DecodeWideFlac(samples, maxFrames);
    if (!codec)
        return -1;
    unsigned done = 0;
    auto* out = static_cast<unsigned char*>(samples);
    while (done < maxFrames) {
        if (exactFrames && delivered >= exactFrames)
            break; // some containers decode a frame more than they tell
        if (!current || offset >= current->nb_samples) {
            const Step step = flushed && !current && delivered ? Step::end : NextFrame();
            if (step == Step::damage)
                return -1;
            if (step == Step::end)
                break;
        }
        std::uint64_t count =
            std::min<unsigned>(maxFrames - done, static_cast<unsigned>(current->nb_samples - offset));
        if (exactFrames)
            count = std::min(count, exactFrames - delivered);
        ConvertSamples(*current, offset, static_cast<int>(count), layout, out);
        checksum.Add(out, count);
        out += count * static_cast<unsigned>(channels) * 4;
        offset += static_cast<int>(count);
        done += static_cast<unsigned>(count);
        delivered += count;
    }
    if (done == 0 && maxFrames > 0 && !checksum.IsRight()) {
        Fail(wrongChecksum);
        return -1;
    }
    return static_cast<int>(done);
}

XString AudioStream::DamageText() const {
    if (damaged == 0)
        return XString();
    return UnsignedText(damaged) + L" of " + UnsignedText(packets) +
           L" pieces of the source are damaged or no audio, and were left out";
}

bool AudioStream::SeekTo(std::uint64_t target) {
    AudioFormatRecord ignored;
    const XString again = path;
    if (target < delivered && !Open(again, ignored))
        return false;
    if (target != delivered)
        checksum.Stop();
    while (delivered < target) {
        if (wideFlac) {
            std::int32_t dropped[64 * 8]; // FLAC has eight channels at most
            const auto few = static_cast<unsigned>(std::min<std::uint64_t>(target - delivered, 64));
            if (DecodeWideFlac(dropped, few) <= 0)
                return false;
            continue;
        }
        if (!current || offset >= current->nb_samples) {
            if (NextFrame() != Step::frame)
                return false;
        }
        const auto skip = static_cast<int>(
            std::min<std::uint64_t>(target - delivered, static_cast<unsigned>(current->nb_samples - offset)));
        offset += skip;
        delivered += static_cast<unsigned>(skip);
    }
    return true;
}
