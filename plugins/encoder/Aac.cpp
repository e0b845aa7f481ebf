// The encoder library "m4a AAC": AAC-LC in an M4A file, through FFmpeg's encoder.
#include "foundation/XTagList.h"
#include "plugins/common/EncoderExports.h"
#include "plugins/common/Information.h"
#include "plugins/common/PcmConvert.h"
#include "plugins/common/Resampler.h"
#include "plugins/encoder/AacOptions.h"
#include "plugins/encoder/AacPanel.h"
#include "plugins/encoder/M4aFile.h"
#include "plugins/encoder/Mp4Tags.h"
#include "plugins/encoder/MpegRates.h"

namespace {

constexpr int mostChannels = 8;
constexpr std::uint64_t packetFrames = 1024, packetOverhead = 5; // bytes of a packet in the index

int ChannelsFor(const AacChoice& choice, const PcmFormat& source) noexcept {
    return choice.channels ? choice.channels : source.channels;
}

class clAacEncoder : public EncoderBase {
public:
    static constexpr const wchar_t* extension = L".m4a";
    static bool Check(const wchar_t* text, XString& error) {
        AacChoice choice;
        return ReadAacChoice(text, choice, error);
    }
    static std::uint64_t EstimateBytes(const PcmFormat& source, std::uint64_t lengthMs, const wchar_t* text) {
        AacChoice choice;
        XString error;
        (void)ReadAacChoice(text, choice, error);
        const std::uint32_t frequency = AacRateFor(source.frequency);
        const std::uint64_t rate =
            static_cast<std::uint64_t>(AacBitRate(choice, ChannelsFor(choice, source), frequency));
        return lengthMs * (rate / 8 + frequency * packetOverhead / packetFrames) / 1000;
    }
    bool Begin(const EncoderBeginBlock& block);
    bool Encode(const void* samples, std::uint32_t frames);
    bool End(bool completed);

    AacPanel panel;

private:
    void InformOfFormat(const M4aAudio& audio);
    bool Resampled(const void* samples, std::uint32_t frames);
    bool FileFailed() { return Fail(file.Error()); }

    M4aFile file;
    Resampler resampler;
    bool resamples = false;
    ByteVector items;
    std::vector<float> floats;
};

void clAacEncoder::InformOfFormat(const M4aAudio& audio) {
    if (audio.frequency != format.frequency)
        Inform(RateText(L"AAC", format.frequency, audio.frequency));
    if (file.HasOtherPlaces())
        Inform(L"AAC can't hold the source's places of its " + DecimalText(format.channels) +
               L" channels: they have others, in the same order");
}

bool clAacEncoder::Begin(const EncoderBeginBlock& block) {
    AacChoice choice;
    if (!ReadAacChoice(block.settings, choice, lastError))
        return false;
    M4aAudio audio;
    audio.codec = M4aCodec::aac;
    audio.channels = ChannelsFor(choice, format);
    if (audio.channels > mostChannels)
        return Fail(L"AAC holds up to 8 channels, and the source has " + DecimalText(format.channels));
    audio.channelMask = audio.channels == format.channels ? format.channelMask : 0;
    audio.frequency = AacRateFor(format.frequency);
    audio.bitRate = AacBitRate(choice, audio.channels, audio.frequency);
    resamples = audio.channels != format.channels || audio.frequency != format.frequency;
    if (resamples && !resampler.Open(format, audio.channels, audio.frequency, lastError))
        return false;
    XTagList tags;
    if (block.tagData)
        tags.Deserialize(block.tagData, block.tagDataSize);
    LeftOutTags leftOut;
    items = BuildMp4Items(tags, leftOut);
    WritesFormat(audio.channels, audio.frequency);
    WritesTags(L"M4A", tags, leftOut);
    if (!file.Open(block.outputPath, audio))
        return FileFailed();
    InformOfFormat(audio);
    return true;
}

bool clAacEncoder::Resampled(const void* samples, std::uint32_t frames) {
    return resampler.Convert(samples, frames, lastError) &&
           (file.Write(resampler.Output(), resampler.OutputFrames()) || FileFailed());
}

bool clAacEncoder::Encode(const void* samples, std::uint32_t frames) {
    if (resamples)
        return Resampled(samples, frames);
    if (!format.isFloat) {
        const std::size_t count = std::size_t(frames) * static_cast<std::size_t>(format.channels);
        floats.resize(std::max(floats.size(), count));
        IntToFloat(static_cast<const std::int32_t*>(samples), floats.data(), count, format.bits);
        samples = floats.data();
    }
    return file.Write(samples, frames) || FileFailed();
}

bool clAacEncoder::End(bool completed) {
    if (!completed) {
        file.Abandon();
        return true;
    }
    if (resamples && !Resampled(nullptr, 0))
        return false;
    return file.Finish(std::move(items)) || FileFailed();
}

} // namespace

ZT_ENCODER_EXPORTS(clAacEncoder)
