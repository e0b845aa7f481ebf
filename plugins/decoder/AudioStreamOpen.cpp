// Opening a source: container, codec, and what they tell of length and format.
#include "plugins/decoder/AudioStream.h"

#include "plugins/decoder/FileMarks.h"
#include "plugins/decoder/WaveLength.h"

#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

namespace {

void ToUtf8(const XString& text, char* out, int size) {
    if (WideCharToMultiByte(CP_UTF8, 0, text, -1, out, size, nullptr, nullptr) == 0)
        out[0] = 0;
}

constexpr int streamInfoBytes = 34; // of FLAC, the checksum last

bool Is(const char* name, const char* wanted) {
    return std::strcmp(name, wanted) == 0;
}

constexpr wchar_t protectedText[] = L"The source is protected against copying";
constexpr std::int64_t mostIndexBytes = 1 << 20; // what stands before the first packet's place is less
constexpr int mostBoxes = 1000;

// Finds the index among the outer boxes.
bool IsProtectedMp4(FileInput& file) {
    const std::int64_t size = file.Size();
    std::int64_t at = 0;
    for (int i = 0; i < mostBoxes && at + 8 <= size; ++i) {
        unsigned char head[16] = {};
        if (!file.Rewind(at) || file.Read(head, sizeof head) < 8)
            return false;
        std::uint64_t told = 0;
        const bool isLarge = head[0] == 0 && head[1] == 0 && head[2] == 0 && head[3] == 1;
        for (int k = isLarge ? 8 : 0; k < (isLarge ? 16 : 4); ++k)
            told = told << 8 | head[k];
        const std::uint64_t left = static_cast<std::uint64_t>(size - at);
        if (std::memcmp(head + 4, "moov", 4) == 0) {
            std::vector<unsigned char> moov(
                static_cast<std::size_t>(std::min({told, left, static_cast<std::uint64_t>(mostIndexBytes)})));
            const int got = file.Rewind(at) ? file.Read(moov.data(), static_cast<unsigned>(moov.size())) : 0;
            return got > 0 && HasProtectedAudio(moov.data(), static_cast<std::size_t>(got));
        }
        if (told < 8 || told > left)
            return false;
        at += static_cast<std::int64_t>(told);
    }
    return false;
}

bool IsPcm(const AVCodecParameters& parameters) {
    return parameters.codec_id >= AV_CODEC_ID_FIRST_AUDIO && parameters.codec_id < AV_CODEC_ID_ADPCM_IMA_QT;
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
        return IsPcm(parameters);
    }
}

} // namespace
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
    AVDictionary* options = nullptr;
    const bool isWrapped = IsWrappedWave(input);
    if (isWrapped) {
        av_dict_set(&options, "ignore_length", "1", 0); // else it would end where its header says,
        container->pb->seekable = 0;                    // and tags would be sought in the audio behind
    }
    const int opened =
        input.Rewind() ? avformat_open_input(&container, name, nullptr, &options) : AVERROR(EIO);
    av_dict_free(&options);
    if (opened < 0) {
        Fail(L"Unsupported or damaged source", opened);
        return false;
    }
    if (isWrapped)
        container->pb->seekable = AVIO_SEEKABLE_NORMAL;
    LearnProtection();
    return true;
}

bool AudioStream::FindStream() {
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

void AudioStream::LearnProtection() {
    FileInput file;
    XString ignored;
    if (std::strstr(container->iformat->name, "mp4"))
        isProtected = file.Open(path, ignored) && IsProtectedMp4(file);
    // Of the encryption objects in a Windows Media header.
    for (const char* key : {"encryption", "ASF_Protection_Type"})
        isProtected = isProtected || av_dict_get(container->metadata, key, nullptr, 0);
}

void AudioStream::DescribeProtected(AudioFormatRecord& record) {
    const AVCodecParameters& parameters = *stream->codecpar;
    record = AudioFormatRecord{};
    record.sampleKind = ztSampleFloat;
    record.sampleBytes = 4;
    record.bitsPerSample = 32;
    record.channels = static_cast<std::uint16_t>(std::max(1, parameters.ch_layout.nb_channels));
    record.frequency = static_cast<std::uint32_t>(std::max(1, parameters.sample_rate));
    record.lengthMs = static_cast<std::uint64_t>(std::max<std::int64_t>(0, container->duration) / 1000);
}

// How many frames the container tells, and whether it can be relied on.
void AudioStream::LearnLength() {
    const AVCodecParameters& parameters = *stream->codecpar;
    const char* kind = container->iformat->name;
    if ((Is(kind, "wav") || Is(kind, "w64")) && TellsExactLength(parameters) && parameters.block_align > 0) {
        FileInput header;
        XString ignored;
        if (header.Open(path, ignored))
            expectedFrames = PromisedWaveBytes(header) / static_cast<unsigned>(parameters.block_align);
        exactFrames = expectedFrames;
    } else if (Is(kind, "caf") && stream->nb_frames > 0 && IsPcm(parameters)) {
        // By the header; the stream's duration is estimated, by what is there of the file.
        exactFrames = expectedFrames = static_cast<std::uint64_t>(stream->nb_frames);
    }
    const bool known = container->duration_estimation_method != AVFMT_DURATION_FROM_BITRATE;
    if (expectedFrames || !known || parameters.sample_rate <= 0)
        return;
    // Matroska tells the length of its longest stream.
    if (stream->duration <= 0 && container->nb_streams == 1 && container->duration > 0)
        expectedFrames =
            static_cast<std::uint64_t>(av_rescale(container->duration, parameters.sample_rate, AV_TIME_BASE));
    if (stream->duration <= 0)
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
    if (!OpenContainer())
        return false;
    const bool isFound = FindStream();
    if (isProtected && isFound)
        DescribeProtected(record);
    if (isProtected) {
        error = protectedText;
        return isFound;
    }
    if (isFound && stream->codecpar->codec_id == AV_CODEC_ID_FLAC && OpenWideFlac(record))
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
