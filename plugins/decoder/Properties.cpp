#include "plugins/decoder/Properties.h"

#include "plugins/decoder/AudioStream.h"
#include "plugins/decoder/EncoderFacts.h"
#include "plugins/decoder/FileMarks.h"

#include <algorithm>
#include <cstring>
#include <vector>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

namespace {

constexpr std::int64_t encoderBytes = 16 * 1024; // behind an ID3 tag: enough for the header frame

using Bytes = std::vector<unsigned char>;

Bytes ReadAt(FileInput& file, std::int64_t at, std::int64_t count) {
    const std::int64_t left = file.Size() - at;
    Bytes bytes(static_cast<std::size_t>(std::clamp<std::int64_t>(left, 0, count)));
    const int got =
        at >= 0 && file.Rewind(at) ? file.Read(bytes.data(), static_cast<unsigned>(bytes.size())) : 0;
    bytes.resize(static_cast<std::size_t>(std::max(got, 0)));
    return bytes;
}

XString MetadataText(const AudioStream& source, const char* key) {
    for (const AVDictionary* dictionary : {source.Container()->metadata, source.Stream()->metadata})
        if (const AVDictionaryEntry* entry = av_dict_get(dictionary, key, nullptr, 0))
            return FromUtf8(entry->value);
    return XString();
}

bool IsContainer(const AudioStream& source, const char* name) {
    return std::strstr(source.Container()->iformat->name, name) != nullptr;
}

EncoderFacts FactsOf(const AudioStream& source, FileInput& file, const Bytes& start) {
    const AVCodecParameters& parameters = *source.Stream()->codecpar;
    switch (parameters.codec_id) {
    case AV_CODEC_ID_MP3: {
        const auto audio = static_cast<std::int64_t>(Id3v2Bytes(start.data(), start.size()));
        const Bytes bytes = ReadAt(file, audio, encoderBytes);
        return ReadMp3Facts(bytes.data(), bytes.size());
    }
    case AV_CODEC_ID_WAVPACK: {
        const Bytes bytes = ReadAt(file, 0, encoderBytes);
        return ReadWavPackFacts(bytes.data(), bytes.size());
    }
    case AV_CODEC_ID_APE: {
        const unsigned char* told = parameters.extradata; // version and level, as FFmpeg's reader leaves them
        return parameters.extradata_size < 4
                   ? EncoderFacts()
                   : MonkeysAudioFacts(told[0] | told[1] << 8u, told[2] | told[3] << 8u);
    }
    default:
        return {};
    }
}

// How many bits of MPEG layer 3 one of a coding stands for, in percent, as listeners find it.
int WeightOf(AVCodecID id) {
    switch (id) {
    case AV_CODEC_ID_OPUS:
        return 160;
    case AV_CODEC_ID_AAC:
    case AV_CODEC_ID_VORBIS:
        return 130;
    case AV_CODEC_ID_MUSEPACK7:
    case AV_CODEC_ID_MUSEPACK8:
        return 120;
    case AV_CODEC_ID_MP1:
    case AV_CODEC_ID_MP2:
    case AV_CODEC_ID_AC3:
        return 70;
    default:
        return 100;
    }
}

XString ContainerKind(const AudioStream& source) {
    struct Row {
        const char* container;
        const wchar_t* kind;
    };
    static constexpr Row rows[] = {{"matroska", L"Matroska"}, {"w64", L"RIFF INFO"}, {"avi", L"RIFF INFO"},
                                   {"dsf", L"ID3v2"},         {"caf", L"CAF"},       {"flv", L"FLV"}};
    for (const Row& row : rows)
        if (IsContainer(source, row.container))
            return row.kind;
    return XString();
}

void AddUnlessEmpty(XTagList& properties, const wchar_t* key, const XString& value) {
    if (!value.IsEmpty())
        properties.Add(key, value);
}

} // namespace

void CollectProperties(const AudioStream& source, const XString& path, const TagFacts& facts, bool hasTags,
                       XTagList& properties) {
    const AVCodecParameters& parameters = *source.Stream()->codecpar;
    FileInput file;
    XString ignored;
    Bytes start, end;
    EncoderFacts told;
    if (file.Open(path, ignored)) {
        start = ReadAt(file, 0, tagMarkBytes);
        end = ReadAt(file, std::max<std::int64_t>(0, file.Size() - std::int64_t{tagMarkBytes}), tagMarkBytes);
        told = FactsOf(source, file, start);
    }
    const bool hasVendor = !facts.vendor.IsEmpty() && parameters.codec_id != AV_CODEC_ID_OPUS;
    AddUnlessEmpty(properties, L"Encoder",
                   !told.encoder.IsEmpty() ? told.encoder
                   : hasVendor             ? facts.vendor
                                           : MetadataText(source, "encoder"));
    AddUnlessEmpty(properties, L"Encoder Settings",
                   told.settings.IsEmpty() ? MetadataText(source, "encoder_options") : told.settings);

    XString kinds = TagKindsAround(start.data(), start.size(), end.data(), end.size());
    AddTagKind(kinds, facts.kinds);
    if (kinds.IsEmpty() && hasTags)
        kinds = ContainerKind(source);
    AddUnlessEmpty(properties, L"ID Tag", kinds);

    const AVCodecDescriptor* descriptor = avcodec_descriptor_get(parameters.codec_id);
    const bool isHybrid = told.settings.Find(L"ybrid") != 0;
    const bool isLossless = descriptor && (descriptor->props & AV_CODEC_PROP_LOSSLESS) && !isHybrid;
    const std::int64_t rate = parameters.bit_rate > 0 ? parameters.bit_rate : source.Container()->bit_rate;
    if (isLossless)
        properties.Add(L"Audio Quality", L"Perfect (Lossless)");
    else if (rate > 0)
        properties.Add(L"Audio Quality",
                       LossyQuality(rate, parameters.ch_layout.nb_channels, WeightOf(parameters.codec_id)));
    const bool isGapless = isLossless || told.tellsGaps || parameters.initial_padding > 0 ||
                           parameters.codec_id == AV_CODEC_ID_VORBIS ||
                           parameters.codec_id == AV_CODEC_ID_OPUS ||
                           !MetadataText(source, "iTunSMPB").IsEmpty();
    properties.Add(L"gapless", isGapless ? L"Yes" : L"No");
    properties.Add(L"protected", source.IsProtected() ? L"Yes" : L"No");
}
