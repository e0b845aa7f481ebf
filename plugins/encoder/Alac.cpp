// The encoder library "ALAC": Apple Lossless in an M4A file, 16 and 24 bit, through FFmpeg's encoder.
#include "foundation/XTagList.h"
#include "plugins/common/EncoderExports.h"
#include "plugins/common/Information.h"
#include "plugins/common/PcmConvert.h"
#include "plugins/encoder/AlacOptions.h"
#include "plugins/encoder/AlacPanel.h"
#include "plugins/encoder/M4aFile.h"
#include "plugins/encoder/Mp4Tags.h"

namespace {

constexpr int mostChannels = 8;
constexpr std::uint32_t mostFrequency = 384000;

// Sources that were coded with loss have nothing worth keeping below 16 bits.
int BitsFor(const PcmFormat& source, const wchar_t* text) {
    Settings settings;
    XString error;
    const std::int64_t chosen =
        settings.Parse(text, AlacOption::all, error) ? settings.Number(L"format", 0) : 0;
    if (chosen != 0)
        return static_cast<int>(chosen);
    return source.isLossy || (!source.isFloat && source.bits <= 16) ? 16 : 24;
}

class clAlacEncoder : public EncoderBase {
public:
    static constexpr const wchar_t* extension = L".m4a";
    static bool Check(const wchar_t* text, XString& error) {
        Settings settings;
        return settings.Parse(text, AlacOption::all, error);
    }
    static std::uint64_t EstimateBytes(const PcmFormat& source, std::uint64_t lengthMs, const wchar_t* text) {
        // Music comes to about three fifths of its PCM size.
        const double seconds = static_cast<double>(lengthMs) / 1000;
        return static_cast<std::uint64_t>(seconds * source.frequency * source.channels *
                                          BitsFor(source, text) / 8 * 0.6);
    }
    bool Begin(const EncoderBeginBlock& block);
    bool Encode(const void* samples, std::uint32_t frames);
    bool End(bool completed);

    AlacPanel panel;

private:
    bool FileFailed() { return Fail(file.Error()); }

    M4aFile file;
    DepthChanger depth;
    ByteVector items;
    bool isChosen = false; // the depth is the user's wish
};

bool clAlacEncoder::Begin(const EncoderBeginBlock& block) {
    if (format.channels > mostChannels)
        return Fail(L"ALAC holds up to 8 channels, and the source has " + DecimalText(format.channels));
    if (format.frequency > mostFrequency)
        return Fail(L"ALAC holds up to " + DecimalText(mostFrequency) + L" Hz, and the source has " +
                    UnsignedText(format.frequency));
    M4aAudio audio;
    audio.codec = M4aCodec::alac;
    audio.channels = format.channels;
    audio.channelMask = format.channelMask;
    audio.frequency = format.frequency;
    audio.bits = BitsFor(format, block.settings);
    isChosen = audio.bits < 24 && !format.isLossy;
    depth.Open(format.isFloat, format.bits, audio.bits);
    XTagList tags;
    if (block.tagData)
        tags.Deserialize(block.tagData, block.tagDataSize);
    LeftOutTags leftOut;
    items = BuildMp4Items(tags, leftOut);
    WritesFormat(audio.channels, audio.frequency, audio.bits);
    WritesTags(L"ALAC", tags, leftOut);
    if (!file.Open(block.outputPath, audio))
        return FileFailed();
    if (file.HasOtherPlaces())
        Inform(L"ALAC can't hold the source's places of its " + DecimalText(format.channels) +
               L" channels: they have others, in the same order");
    return true;
}

bool clAlacEncoder::Encode(const void* samples, std::uint32_t frames) {
    const std::size_t count = std::size_t(frames) * static_cast<std::size_t>(format.channels);
    return file.Write(depth.Convert(samples, count), frames) || FileFailed();
}

bool clAlacEncoder::End(bool completed) {
    if (!completed) {
        file.Abandon();
        return true;
    }
    if (depth.HasRounded() && !isChosen && !format.isLossy)
        Inform(XString(L"ALAC can't hold ") +
               (format.isFloat ? XString(L"floating point") : DecimalText(format.bits) + L" bit") +
               L" samples: they were rounded to 24 bit");
    if (!format.isLossy)
        Inform(ClippedText(depth.Clipped()));
    return file.Finish(std::move(items)) || FileFailed();
}

} // namespace

ZT_ENCODER_EXPORTS(clAlacEncoder)
